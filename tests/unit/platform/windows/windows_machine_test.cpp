#include "platform/windows/windows_machine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

namespace korvinel::platform {
namespace {

TEST(WindowsMachine, RaisesThePrioritiesOfItsThreadAndProcess) {
  WindowsMachine machine;
  machine.setThreadPriority(1);
  machine.setPriorityClass(128);
  EXPECT_EQ(GetThreadPriority(GetCurrentThread()), THREAD_PRIORITY_ABOVE_NORMAL);
  EXPECT_EQ(GetPriorityClass(GetCurrentProcess()), static_cast<DWORD>(HIGH_PRIORITY_CLASS));
  machine.setThreadPriority(0);
  machine.setPriorityClass(NORMAL_PRIORITY_CLASS);
}

/// The width of the picture in the clipboard; 0: none.
int widthOnClipboard() {
  if (OpenClipboard(nullptr) == 0) return 0;
  BITMAP picture{};
  if (void* const handle = GetClipboardData(CF_BITMAP)) GetObject(handle, sizeof picture, &picture);
  CloseClipboard();
  return static_cast<int>(picture.bmWidth);
}

/// Prints nothing; records its calls and the width of the picture to print.
struct RecordingPrinter : ScreenPrinter {
  explicit RecordingPrinter(std::vector<std::string>& log) : calls(log) {}
  int systemMajorVersion() override { return 0; }
  void emptyClipboard() override { calls.emplace_back("empty"); }
  void pressPrintScreen(int scanCode) override { calls.emplace_back("press " + std::to_string(scanCode)); }
  void printClipboard(double, double, double, double) override {
    calls.emplace_back("print");
    width = widthOnClipboard();
  }
  std::vector<std::string>& calls;
  int width = 0;
};

TEST(WindowsScreenPrinter, KnowsTheSecondFamilyOfSystems) {
  std::vector<std::string> calls;
  WindowsScreenPrinter printer(std::make_unique<RecordingPrinter>(calls));
  EXPECT_GE(printer.systemMajorVersion(), 5);
}

void putPictureOnClipboard(int width = 8) {
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  EXPECT_NE(SetClipboardData(CF_BITMAP, CreateBitmap(width, 8, 1, 32, nullptr)), nullptr);
  CloseClipboard();
}

/// Presses the key and prints; the printed picture must be a new one, taken by the system or by the program.
void expectNewPicture(WindowsScreenPrinter& printer, std::vector<std::string>& calls) {
  calls.clear();
  const DWORD before = GetClipboardSequenceNumber();
  printer.pressPrintScreen(1);
  printer.printClipboard(10, 3, 190, 145);
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back(), "print");
  EXPECT_TRUE(calls.front() == "press 1" || GetClipboardSequenceNumber() != before);
}

TEST(WindowsScreenPrinter, AnEmptyClipboardGetsAPicture) {
  std::vector<std::string> calls;
  WindowsScreenPrinter printer(std::make_unique<RecordingPrinter>(calls));
  printer.emptyClipboard();
  expectNewPicture(printer, calls);
}

TEST(WindowsScreenPrinter, NeverPrintsAPictureFromBeforeTheKey) {
  std::vector<std::string> calls;
  WindowsScreenPrinter printer(std::make_unique<RecordingPrinter>(calls));
  putPictureOnClipboard();
  for (int print = 1; print <= 2; ++print) expectNewPicture(printer, calls);
}

/// Like the system: replaces the clipboard's content some time after the key.
TEST(WindowsScreenPrinter, PrintsThePictureThatTheSystemTookAndNotTheOneBefore) {
  std::vector<std::string> calls;
  auto inner = std::make_unique<RecordingPrinter>(calls);
  const RecordingPrinter& page = *inner;
  WindowsScreenPrinter printer(std::move(inner));
  putPictureOnClipboard(8);
  printer.pressPrintScreen(1);
  std::thread system([] {
    Sleep(100);
    putPictureOnClipboard(24);
  });
  printer.printClipboard(10, 3, 190, 145);
  const int printed = page.width;
  system.join();
  EXPECT_EQ(printed, 24);
  EXPECT_THAT(calls, testing::ElementsAre("print"));
}

TEST(WindowsScreenPrinter, EmptiesTheClipboard) {
  std::vector<std::string> calls;
  WindowsScreenPrinter printer(std::make_unique<RecordingPrinter>(calls));
  putPictureOnClipboard();
  printer.emptyClipboard();
  EXPECT_EQ(IsClipboardFormatAvailable(CF_BITMAP), FALSE);
}

}  // namespace
}  // namespace korvinel::platform
