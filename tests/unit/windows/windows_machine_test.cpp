#include "platform/windows/windows_machine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include "platform/disk/installation.h"
#include "platform/host_paths.h"
#include "platform/windows/disk_files.h"

namespace korvinel::platform {
namespace {

TEST(WindowsHostPaths, MapNothing) {
  EXPECT_EQ(userDataFolder(), "");
  EXPECT_EQ(hostPath("", "C:\\QUARVEL5\\Instal8s.val"), "C:\\QUARVEL5\\Instal8s.val");
  EXPECT_EQ(programPath("", "C:/QUARVEL5/DATAFILE/a.QVD"), "C:\\QUARVEL5\\DATAFILE\\a.QVD");
  EXPECT_EQ(serialDevice("", 12), "\\\\.\\COM12");
}

TEST(WindowsMachine, RaisesThePrioritiesOfItsThreadAndProcess) {
  WindowsMachine machine;
  machine.setThreadPriority(1);
  machine.setPriorityClass(128);
  EXPECT_EQ(GetThreadPriority(GetCurrentThread()), THREAD_PRIORITY_ABOVE_NORMAL);
  EXPECT_EQ(GetPriorityClass(GetCurrentProcess()), static_cast<DWORD>(HIGH_PRIORITY_CLASS));
  machine.setThreadPriority(0);
  machine.setPriorityClass(NORMAL_PRIORITY_CLASS);
}

/// Prints nothing, and remembers what it was asked.
struct RecordingPrinter : ScreenPrinter {
  explicit RecordingPrinter(std::vector<std::string>& log) : calls(log) {}
  int systemMajorVersion() override { return 0; }
  void emptyClipboard() override { calls.emplace_back("empty"); }
  void pressPrintScreen(int scanCode) override { calls.emplace_back("press " + std::to_string(scanCode)); }
  void printClipboard(double, double, double, double) override { calls.emplace_back("print"); }
  std::vector<std::string>& calls;
};

TEST(WindowsScreenPrinter, KnowsTheSecondFamilyOfSystems) {
  std::vector<std::string> calls;
  WindowsScreenPrinter printer(std::make_unique<RecordingPrinter>(calls));
  EXPECT_GE(printer.systemMajorVersion(), 5);
}

TEST(WindowsScreenPrinter, TakesItsOwnPictureWhereTheKeyBringsNone) {
  std::vector<std::string> calls;
  WindowsScreenPrinter printer(std::make_unique<RecordingPrinter>(calls));
  printer.emptyClipboard();
  printer.printClipboard(10, 3, 190, 145);
  EXPECT_THAT(calls, testing::ElementsAre("press 0", "print"));
}

void putPictureOnClipboard() {
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  EXPECT_NE(SetClipboardData(CF_BITMAP, CreateBitmap(8, 8, 1, 32, nullptr)), nullptr);
  CloseClipboard();
}

TEST(WindowsScreenPrinter, PrintsThePictureThatTheSystemTook) {
  std::vector<std::string> calls;
  WindowsScreenPrinter printer(std::make_unique<RecordingPrinter>(calls));
  putPictureOnClipboard();
  printer.printClipboard(10, 3, 190, 145);
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
