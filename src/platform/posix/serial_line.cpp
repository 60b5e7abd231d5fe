#include "platform/posix/serial_line.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <time.h>

#include <array>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <utility>

#include "platform/port_fault.h"

namespace korvinel::platform {
namespace {

/// `error`: an `errno`; 0 = no reason of the system's.
PortFault portFault(Cause cause, const std::string& path, int error = 0) {
  return PortFault(
      Facts{.cause = cause, .path = path, .systemReason = error == 0 ? std::string() : systemMessage(error)});
}

[[noreturn]] void refuseSettings(std::string_view settings) {
  throw PortFault(Facts{.cause = Cause::portSettings, .text = std::string(settings)});
}

speed_t speedOf(std::string_view baud) {
  constexpr std::array<std::pair<int, speed_t>, 10> speeds = {{{300, B300},
                                                               {600, B600},
                                                               {1200, B1200},
                                                               {2400, B2400},
                                                               {4800, B4800},
                                                               {9600, B9600},
                                                               {19200, B19200},
                                                               {38400, B38400},
                                                               {57600, B57600},
                                                               {115200, B115200}}};
  int number = 0;
  const auto parsed = std::from_chars(baud.data(), baud.data() + baud.size(), number);
  if (parsed.ptr == baud.data() + baud.size())
    for (const auto& [rate, speed] : speeds)
      if (rate == number) return speed;
  return B0;
}

/// The flags of "N,8,1", one character each.
tcflag_t framingFlags(std::string_view framing, std::string_view settings) {
  if (framing.size() != 5 || framing[1] != ',' || framing[3] != ',') refuseSettings(settings);
  constexpr std::array<tcflag_t, 4> sizes = {CS5, CS6, CS7, CS8};
  const auto parity = std::string_view("NEO").find(static_cast<char>(std::toupper(framing[0])));
  const auto size = std::string_view("5678").find(framing[2]);
  const auto stopBits = std::string_view("12").find(framing[4]);
  constexpr auto none = std::string_view::npos;
  if (parity == none || size == none || stopBits == none) refuseSettings(settings);
  tcflag_t flags = sizes[size];
  if (parity != 0) flags |= PARENB;
  if (parity == 2) flags |= PARODD;
  if (stopBits == 1) flags |= CSTOPB;
  return flags;
}

void requireDeviceFile(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) throw portFault(Cause::portMissing, path, errno);
  if (!S_ISCHR(status.st_mode)) throw portFault(Cause::noPort, path);
}

[[noreturn]] void refuseToOpen(const std::string& path, int error) {
  if (error == EACCES || error == EPERM) throw portFault(Cause::portForbidden, path);
  if (error == EBUSY) throw portFault(Cause::portInUse, path);
  throw portFault(Cause::portNotOpened, path, error);
}

}  // namespace

LineSettings parseLineSettings(std::string_view settings) {
  const std::size_t comma = settings.find(',');
  if (comma == std::string_view::npos) refuseSettings(settings);
  const LineSettings parsed{speedOf(settings.substr(0, comma)), framingFlags(settings.substr(comma + 1), settings)};
  if (parsed.speed == B0) refuseSettings(settings);
  return parsed;
}

long countedLineErrors(int device) {
  serial_icounter_struct counted{};
  if (ioctl(device, TIOCGICOUNT, &counted) != 0) return 0;
  return long{counted.overrun} + counted.buf_overrun + counted.frame + counted.brk;
}

void SerialLine::open() {
  close();
  const std::string path = devicePath_(portNumber_);
  requireDeviceFile(path);
  device_ = FileDescriptor(::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!isOpen()) refuseToOpen(path, errno);
  if (isatty(device_.get()) == 0) fail(portFault(Cause::noPort, path));
  // A second program on the same line would take some of the bytes.
  if (flock(device_.get(), LOCK_EX | LOCK_NB) != 0) fail(portFault(Cause::portInUse, path));
  if (!configure()) fail(portFault(Cause::portRefusesSettings, path, errno));
  beginAnew();
}

bool SerialLine::configure() const {
  termios terminal{};
  tcgetattr(device_.get(), &terminal);
  cfmakeraw(&terminal);
  terminal.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS);
  terminal.c_cflag |= settings_.flags | CLOCAL | CREAD;
  // At least one byte: only then can "nothing yet" (EAGAIN) be distinguished from a line that has hung up (no byte).
  terminal.c_cc[VMIN] = 1;
  terminal.c_cc[VTIME] = 0;
  cfsetispeed(&terminal, settings_.speed);
  cfsetospeed(&terminal, settings_.speed);
  return tcsetattr(device_.get(), TCSANOW, &terminal) == 0;
}

void SerialLine::close() {
  device_.reset();
  beginAnew();
}

void SerialLine::raise(int modemLine) {
  if (!isOpen()) throw PortFault(Cause::portClosed);
  if (ioctl(device_.get(), TIOCMBIS, &modemLine) == 0) return;
  const bool lineIsMissing = errno == ENOTTY || errno == EINVAL;
  if (!lineIsMissing) fail(portFault(Cause::portSilent, "", errno));
}

void SerialLine::expectFrames(int bytesPerFrame, bool lineIsSilent) {
  BufferedLine::expectFrames(bytesPerFrame, lineIsSilent);
  knownErrors_ = isOpen() ? lineErrors_(device_.get()) : 0;
}

void SerialLine::dropFromSystem() {
  if (isOpen()) tcflush(device_.get(), TCIFLUSH);
}

double SerialLine::seconds() const {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void SerialLine::takeFromSystem() {
  takeArrived();
  if (framed() && isOpen() && lineErrors_(device_.get()) != knownErrors_)
    suspect("il sistema ha contato dei byte persi o guasti sulla linea");
}

/// Takes what the system holds. A failed line is closed here and silent from then on.
void SerialLine::takeArrived() {
  std::array<char, 4096> chunk;
  while (isOpen()) {
    const ssize_t count = ::read(device_.get(), chunk.data(), chunk.size());
    if (count > 0) {
      keep({chunk.data(), static_cast<std::size_t>(count)});
    } else if (count < 0 && errno == EINTR) {
      continue;
    } else {
      const bool nothingYet = count < 0 && errno == EAGAIN;
      if (!nothingYet || hungUp()) close();
      return;
    }
  }
}

bool SerialLine::hungUp() const {
  pollfd look{device_.get(), POLLIN, 0};
  return poll(&look, 1, 0) > 0 && (look.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

void SerialLine::write(std::string_view bytes) {
  if (!isOpen()) throw PortFault(Cause::portClosed);
  while (!bytes.empty()) {
    const ssize_t count = ::write(device_.get(), bytes.data(), bytes.size());
    if (count > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (count < 0 && errno == EAGAIN) {
      waitUntilWritable();
    } else if (count == 0 || errno != EINTR) {
      fail(portFault(Cause::portSilent, "", count == 0 ? EIO : errno));
    }
  }
}

void SerialLine::waitUntilWritable() {
  constexpr int longestWaitMs = 500;
  pollfd look{device_.get(), POLLOUT, 0};
  if (poll(&look, 1, longestWaitMs) == 0) fail(PortFault(Cause::portFull));
}

void SerialLine::fail(const PortFault& fault) {
  close();
  throw fault;
}

}  // namespace korvinel::platform
