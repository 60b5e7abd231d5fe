#include "platform/windows/windows_machine.h"

#include <windows.h>

#include <array>
#include <cstdio>

#include "platform/host_paths.h"
#include "platform/windows/wide_text.h"

namespace korvinel::platform {
namespace {

/// The system copies the picture to the clipboard asynchronously. An older picture there, from an earlier print or
/// another program, does not count: every change of the clipboard changes its number.
bool pictureArrives(DWORD clipboardBefore) {
  constexpr int looks = 50;
  constexpr DWORD betweenLooksMs = 10;
  for (int look = 0; look < looks; ++look) {
    if (GetClipboardSequenceNumber() != clipboardBefore && IsClipboardFormatAvailable(CF_BITMAP) != 0) return true;
    Sleep(betweenLooksMs);
  }
  return false;
}

}  // namespace

void WindowsMachine::setThreadPriority(int stepsAboveNormal) {
  SetThreadPriority(GetCurrentThread(), stepsAboveNormal);
}

void WindowsMachine::setPriorityClass(int priorityClass) {
  SetPriorityClass(GetCurrentProcess(), static_cast<DWORD>(priorityClass));
}

std::string WindowsMachine::homeFolder() { return platform::homeFolder() + "\\"; }

void WindowsMachine::tell(const std::string& line) { std::fprintf(stderr, "korvinel: %s\n", line.c_str()); }

int WindowsScreenPrinter::systemMajorVersion() {
  OSVERSIONINFOA version{};
  static_assert(sizeof version == 148);
  version.dwOSVersionInfoSize = sizeof version;
  return GetVersionExA(&version) != 0 ? static_cast<int>(version.dwMajorVersion) : 0;
}

void WindowsScreenPrinter::emptyClipboard() {
  if (OpenClipboard(nullptr) == 0) return;
  EmptyClipboard();
  CloseClipboard();
}

void WindowsScreenPrinter::pressPrintScreen(int scanCode) {
  scanCode_ = scanCode;
  clipboardBefore_ = GetClipboardSequenceNumber();
  keybd_event(VK_SNAPSHOT, static_cast<BYTE>(scanCode), 0, 0);
  // Released, or the system would treat the next press as the key being held down.
  keybd_event(VK_SNAPSHOT, static_cast<BYTE>(scanCode), KEYEVENTF_KEYUP, 0);
}

void WindowsScreenPrinter::printClipboard(double x, double y, double width, double height) {
  if (!pictureArrives(clipboardBefore_)) printer_->pressPrintScreen(scanCode_);
  printer_->printClipboard(x, y, width, height);
}

Identity hostIdentity() {
  std::array<wchar_t, 257> user{}, computer{};  // the longest name of a user, and its end
  auto userSize = static_cast<DWORD>(user.size());
  auto computerSize = static_cast<DWORD>(computer.size());
  if (GetUserNameW(user.data(), &userSize) == 0) user[0] = L'\0';
  if (GetComputerNameW(computer.data(), &computerSize) == 0) computer[0] = L'\0';
  return {utf8FromWide(user.data()), utf8FromWide(computer.data()), static_cast<int>(GetCurrentProcessId())};
}

}  // namespace korvinel::platform
