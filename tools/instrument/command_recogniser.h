#pragma once

#include <cstdint>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>

namespace korvinel::instrument {

enum class Command : std::uint8_t { test, start, stop };

/// The checksum that closes a command, 0..255: it makes the sum of all bytes 0 modulo 256.
[[nodiscard]] constexpr int closingChecksum(std::string_view command) {
  const auto add = [](int sum, char letter) { return sum + static_cast<unsigned char>(letter); };
  return (256 - std::accumulate(command.begin(), command.end(), 0, add) % 256) % 256;
}
static_assert(closingChecksum("TEST") == 192);
static_assert(closingChecksum("S\x01\x04\x78\x41\x08\x42") == 165);
static_assert(closingChecksum("\xFF") == 1);

[[nodiscard]] std::string_view nameOf(Command command);  ///< "test", "start" or "stop"

/// The bytes of a command on the wire, checksum included: 5, 8 or 2 of them.
[[nodiscard]] std::string_view bytesOf(Command command);

/// Finds the commands in the bytes that arrive at the instrument, one byte at a time. Anything that is not exactly a
/// command is ignored, and a command that begins inside such garbage is still found.
class CommandRecogniser {
 public:
  struct Step {
    std::optional<Command> command;  ///< the command that this byte completes
    std::string ignored;             ///< bytes now known to belong to no command, oldest first
  };
  [[nodiscard]] Step take(char byte);

 private:
  std::string pending_;  // always the beginning of a command, never a complete one
};

}  // namespace korvinel::instrument
