#include "platform/windows/serial_line.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "platform/port_fault.h"
#include "platform/windows/wide_text.h"

namespace korvinel::platform {
namespace {

constexpr DWORD longestWriteMs = 500;
/// Nothing reads between two turns: three seconds, 1536 bytes, more on a slow machine. Larger than a full buffer that
/// raises a doubt about lost bytes.
constexpr DWORD driverQueue = 8192;
static_assert(driverQueue > LineWatch::fullSystemBuffer);

/// `error`: the system's number; 0 = no reason of the system's.
PortFault portFault(Cause cause, const std::string& path, DWORD error = 0) {
  return PortFault(
      Facts{.cause = cause, .path = path, .systemReason = error == 0 ? std::string() : systemMessage(error)});
}

/// Applies "19200,N,8,1" to a port's state; returns whether the settings are valid.
bool lineState(const std::string& settings, DCB& state) {
  state.DCBlength = sizeof state;
  // The system itself accepts many invalid settings, even the empty text.
  const bool complete = std::count(settings.begin(), settings.end(), ',') == 3;
  return complete && BuildCommDCBA(settings.c_str(), &state) != 0;
}

}  // namespace

void SerialLine::setSettings(std::string_view settings) {
  const std::string text(settings);
  DCB state{};
  if (!lineState(text, state)) throw PortFault(Facts{.cause = Cause::portSettings, .text = text});
  settings_ = text;
}

void SerialLine::open() {
  close();
  const std::string path = devicePath_(portNumber_);
  // Not shared: a second program on the same line would take some of the bytes.
  device_ = FileHandle(
      CreateFileW(wideFromUtf8(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!isOpen()) {
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) throw portFault(Cause::portMissing, path);
    if (error == ERROR_ACCESS_DENIED) throw portFault(Cause::portInUse, path);
    throw portFault(Cause::portNotOpened, path, error);
  }
  if (GetFileType(device_.get()) != FILE_TYPE_CHAR) fail(portFault(Cause::noPort, path));
  if (!configure()) fail(portFault(Cause::portRefusesSettings, path, GetLastError()));
  beginAnew();
}

bool SerialLine::configure() const {
  constexpr DWORD sendQueue = 512;
  // Reads return what has arrived and never wait.
  COMMTIMEOUTS timeouts{MAXDWORD, 0, 0, 0, longestWriteMs};
  DCB state{};
  state.DCBlength = sizeof state;
  return SetupComm(device_.get(), driverQueue, sendQueue) != 0 && GetCommState(device_.get(), &state) != 0 &&
         lineState(settings_, state) && SetCommState(device_.get(), &state) != 0 &&
         SetCommTimeouts(device_.get(), &timeouts) != 0;
}

void SerialLine::close() {
  device_.reset();
  beginAnew();
}

/// A device without modem lines refuses, which is not an error; a lost device shows at the next poll or write.
void SerialLine::raise(DWORD modemLine) {
  if (!isOpen()) throw PortFault(Cause::portClosed);
  EscapeCommFunction(device_.get(), modemLine);
}

void SerialLine::dropFromSystem() {
  if (isOpen()) PurgeComm(device_.get(), PURGE_RXCLEAR);
}

double SerialLine::seconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void SerialLine::takeFromSystem() {
  while (isOpen() && takePiece()) continue;
}

/// Takes some of what the driver holds; false when that was all. A failed line is closed here and silent from then on.
bool SerialLine::takePiece() {
  std::array<char, 4096> piece;
  COMSTAT status{};
  DWORD errors = 0;
  DWORD count = 0;
  // This call also clears a framing or overrun error, which would block the reads.
  const bool alive = ClearCommError(device_.get(), &errors, &status) != 0;
  if ((errors & (CE_OVERRUN | CE_RXOVER | CE_FRAME)) != 0)
    suspect("il sistema ha contato dei byte persi o guasti sulla linea");
  const auto size = std::min<DWORD>(status.cbInQue, static_cast<DWORD>(piece.size()));
  if (alive && size == 0) return false;
  if (!alive || ReadFile(device_.get(), piece.data(), size, &count, nullptr) == 0) {
    close();
    return false;
  }
  keep({piece.data(), count});
  return count > 0;
}

void SerialLine::write(std::string_view bytes) {
  if (!isOpen()) throw PortFault(Cause::portClosed);
  while (!bytes.empty()) {
    DWORD count = 0;
    if (WriteFile(device_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == 0)
      fail(portFault(Cause::portSilent, "", GetLastError()));
    if (count == 0) fail(PortFault(Cause::portFull));
    bytes.remove_prefix(count);
  }
}

void SerialLine::fail(const PortFault& fault) {
  close();
  throw fault;
}

}  // namespace korvinel::platform
