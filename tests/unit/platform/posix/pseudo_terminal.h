#pragma once

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <string>
#include <string_view>

#include "platform/posix/file_descriptor.h"

namespace korvinel::platform {

/// The far end of a serial line, simulated by the master of a pseudo-terminal.
class PseudoTerminal {
 public:
  PseudoTerminal() : master_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    grantpt(master_.get());
    unlockpt(master_.get());
    char name[128] = "";
    if (ptsname_r(master_.get(), name, sizeof name) == 0) device_ = name;
  }

  const std::string& device() const { return device_; }

  void send(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t count = ::write(master_.get(), bytes.data(), bytes.size());
      if (count <= 0) return;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  /// Receives `count` bytes from the near end, or fewer if they do not arrive within a second.
  std::string receive(std::size_t count) const {
    std::string bytes;
    pollfd look{master_.get(), POLLIN, 0};
    while (bytes.size() < count && poll(&look, 1, 1000) > 0) {
      char chunk[256];
      const ssize_t got = ::read(master_.get(), chunk, sizeof chunk);
      if (got <= 0) break;
      bytes.append(chunk, static_cast<std::size_t>(got));
    }
    return bytes;
  }

  /// The number of bytes that wait at the device.
  int pending() const {
    const FileDescriptor nearEnd(::open(device_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    int count = 0;
    return ioctl(nearEnd.get(), FIONREAD, &count) == 0 ? count : -1;
  }

  void hangUp() { master_.reset(); }

 private:
  FileDescriptor master_;
  std::string device_;
};

}  // namespace korvinel::platform
