#pragma once

#include <string>
#include <string_view>

namespace korvinel {

/// The instrument's commands. Each ends with a byte that makes the sum of all its bytes 0 modulo 256.

constexpr std::string_view testCommandText = "TEST";                          ///< asks for the answer "OK"
constexpr std::string_view startCommandText{"S\x01\x04\x78\x41\x08\x42", 7};  ///< its six parameters are fixed
constexpr std::string_view stopCommandBytes{"\xFF\x01", 2};  ///< complete: the two bytes already sum to 0

/// Sum of the bytes, each 0..255.
[[nodiscard]] constexpr int byteSum(std::string_view bytes) {
  int sum = 0;
  for (const char byte : bytes) sum += static_cast<unsigned char>(byte);
  return sum;
}

/// The closing byte 0..255 for a command whose bytes so far have this sum: its two's complement in 8 bits.
[[nodiscard]] constexpr int closingChecksum(int sumOfBytes) { return (256 - sumOfBytes % 256) % 256; }

static_assert(closingChecksum(byteSum(testCommandText)) == 192);
static_assert(closingChecksum(byteSum(startCommandText)) == 165);
static_assert(byteSum(stopCommandBytes) % 256 == 0);

}  // namespace korvinel
