#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvinel::instrument {

/// The faults of the instrument or its cable. Bytes and blocks are counted from the start of the program, across all
/// starts and stops; a block is 256 frames = 1024 bytes as the instrument produces them, before any are lost or
/// doubled.
struct Faults {
  bool noAnswer = false;                        ///< the test command is not answered
  std::string wrongAnswer;                      ///< the answer to the test command instead of "OK"; empty = "OK"
  bool repeatAnswer = false;                    ///< the answer comes twice in a row
  bool splitAnswer = false;                     ///< 300 ms between the answer's first character and the rest
  std::int64_t lateAnswerMs = 0;                ///< pause before the answer, milliseconds
  bool testKeepsStreaming = false;              ///< the test command does not end a running stream
  std::int64_t ignoredStarts = 0;               ///< how many start commands are ignored, from the first on
  bool ignoreStop = false;                      ///< the stop command is ignored
  bool cutFrames = false;                       ///< a start or a stop cuts the frame that is being sent
  bool flood = false;                           ///< streams 100 times too fast
  std::vector<std::int64_t> silentAfterBlocks;  ///< after each of these blocks: silent until the next start command
  std::vector<std::int64_t> hangUpAfterBlocks;  ///< after each of these blocks the cable is pulled out
  std::vector<std::int64_t> lostBytes, doubledBytes, flippedBytes;  ///< numbers of bytes, from 1
};

/// Adds the fault written as "NAME" or "NAME=VALUE". Throws std::invalid_argument with a message for the user.
void addFault(Faults& faults, std::string_view text);

/// What reaches the wire for the byte with this number, counted from 1: nothing, the byte, or the byte twice. A flipped
/// byte has all its bits inverted.
[[nodiscard]] std::string onTheWire(const Faults& faults, std::int64_t number, char byte);

}  // namespace korvinel::instrument
