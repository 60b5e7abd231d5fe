#include "instrument/pseudo_terminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace korvinel::instrument {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& what) {
  throw std::runtime_error(what + ": " + std::generic_category().message(errno));
}

void makeRaw(int terminal) {
  termios settings{};
  if (tcgetattr(terminal, &settings) != 0) fail("cannot read the settings of the pseudo-terminal");
  cfmakeraw(&settings);
  cfsetispeed(&settings, B19200);
  cfsetospeed(&settings, B19200);
  settings.c_cflag |= static_cast<tcflag_t>(CLOCAL | CREAD);
  if (tcsetattr(terminal, TCSANOW, &settings) != 0) fail("cannot set the pseudo-terminal raw");
}

bool pointsTo(const fs::path& link, const std::string& target) {
  std::error_code fault;
  return fs::read_symlink(link, fault) == target && !fault;
}

}  // namespace

PseudoTerminal::PseudoTerminal(fs::path link) : link_(std::move(link)) {
  try {
    openPair();
    makeLink();
  } catch (...) {
    close();
    throw;
  }
}

PseudoTerminal::~PseudoTerminal() {
  if (pointsTo(link_, device_)) ::unlink(link_.c_str());
  close();
}

void PseudoTerminal::openPair() {
  master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) fail("cannot open a pseudo-terminal");
  std::array<char, 128> name{};
  if (ptsname_r(master_, name.data(), name.size()) != 0) fail("cannot name the pseudo-terminal");
  device_ = name.data();
  slave_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (slave_ < 0) fail("cannot open " + device_);
  makeRaw(slave_);
  if (fcntl(master_, F_SETFL, O_NONBLOCK) != 0) fail("cannot set up the pseudo-terminal");
}

void PseudoTerminal::makeLink() const {
  std::error_code fault;
  if (link_.has_parent_path()) fs::create_directories(link_.parent_path(), fault);
  if (fault) throw std::runtime_error("cannot create the folder of '" + link_.string() + "': " + fault.message());
  const fs::file_status status = fs::symlink_status(link_);
  if (fs::exists(status) && !fs::is_symlink(status))
    throw std::runtime_error("'" + link_.string() + "' exists and is no symbolic link; it is left as it is");
  // Created under another name and renamed, so that a program looking for the port sees the old link or the new one.
  const fs::path fresh = link_.string() + "." + std::to_string(getpid()) + ".new";
  fs::remove(fresh, fault);
  fs::create_symlink(device_, fresh, fault);
  if (!fault) fs::rename(fresh, link_, fault);
  if (!fault) return;
  ::unlink(fresh.c_str());
  throw std::runtime_error("cannot create the link '" + link_.string() + "': " + fault.message());
}

void PseudoTerminal::close() {
  // The master first, so that the program's end sees the line hang up at once.
  for (int* descriptor : {&master_, &slave_})
    if (const int open = std::exchange(*descriptor, -1); open >= 0) ::close(open);
}

std::size_t PseudoTerminal::write(std::string_view bytes) const {
  const ssize_t count = ::write(master_, bytes.data(), bytes.size());
  if (count >= 0) return static_cast<std::size_t>(count);
  if (errno == EAGAIN || errno == EINTR || errno == EIO) return 0;
  fail("cannot write to the pseudo-terminal");
}

void PseudoTerminal::send(std::string_view piece) {
  if (!rest_.empty()) rest_.erase(0, write(rest_));
  if (!rest_.empty()) return;
  const std::size_t count = write(piece);
  if (count > 0) rest_ = piece.substr(count);
}

std::string PseudoTerminal::receive() {
  std::array<char, 4096> buffer{};
  const ssize_t count = ::read(master_, buffer.data(), buffer.size());
  if (count >= 0) return {buffer.data(), static_cast<std::size_t>(count)};
  if (errno == EAGAIN || errno == EINTR || errno == EIO) return {};
  fail("cannot read from the pseudo-terminal");
}

}  // namespace korvinel::instrument
