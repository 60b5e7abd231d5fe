#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvinel::instrument {

/// The instrument's end of a serial cable that is a pseudo-terminal. The other end is linked under a name of the user's
/// choice for the lifetime of the object. Throws std::runtime_error with a message for the user.
class PseudoTerminal {
 public:
  /// Opens the pair, raw at 19200 baud, and makes `link` point to the far end; missing folders are created, an old
  /// symbolic link is replaced, anything else of that name is refused and left alone.
  explicit PseudoTerminal(std::filesystem::path link);
  ~PseudoTerminal();  ///< removes the link if it is still its own, then hangs up
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  /// Sends without waiting. What does not fit because the far end does not read is lost, but only in whole pieces: a
  /// slow reader misses frames but never sees part of one.
  void send(std::string_view piece);

  [[nodiscard]] std::string receive();  ///< everything that has arrived; never waits

  [[nodiscard]] int pollDescriptor() const { return master_; }  ///< readable when something has arrived
  [[nodiscard]] const std::filesystem::path& link() const { return link_; }
  [[nodiscard]] const std::string& device() const { return device_; }  ///< the far end's true name

 private:
  void openPair();
  void makeLink() const;
  [[nodiscard]] std::size_t write(std::string_view bytes) const;
  void close();

  std::filesystem::path link_;
  std::string device_;
  int master_ = -1;
  int slave_ = -1;    // held open, so that the line does not hang up when the program closes its port
  std::string rest_;  // of a piece that went out in part
};

}  // namespace korvinel::instrument
