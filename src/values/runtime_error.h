#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace korvinel {

/// What kind of operation failed.
enum class Fault {
  overflow,        ///< a value does not fit its field
  subscript,       ///< an index outside an array's stated bounds
  divisionByZero,  ///< a zero divisor, or a NaN result
  input,           ///< content of a file or a line that cannot be read
  output,          ///< a file or device that cannot be written
};

/// What happened, in the order of the kinds. Each has a sentence in every language: in frame/fault_text.cpp and
/// tools/recording_tool/fault_text.cpp.
enum class Cause : std::uint8_t {
  // of numbers
  tooLargeFor16Bits,
  tooLargeFor32Bits,
  tooLargeForFixed,
  tooLargeForAnyNumber,  ///< `text` is a number beyond the range of a double
  indexOutside,
  zeroDivisor,
  emptyInterval,  ///< a mean over no block
  noCorrelation,
  // of a file's content
  noNumber,  ///< `text` stands where a number should
  fieldTooLong,
  quoteMissing,  ///< the text of a field is not closed
  endOfFile,
  // of the file or folder `path`
  notReadable,
  notWritable,
  notRemoved,
  notRenamed,  ///< to `newPath`
  folderNotMade,
  noHome,  ///< the user has no home folder
  // of the serial port `path`
  portSettings,  ///< `text` are no settings
  portMissing,
  noPort,  ///< it is no serial port
  portForbidden,
  portInUse,
  portNotOpened,
  portRefusesSettings,
  portClosed,
  portSilent,  ///< it does not take what is written
  portFull,    ///< it has taken nothing for a while
  // not thrown by the program
  foreign,  ///< by a library: `systemReason` is its text
};
constexpr int causeCount = static_cast<int>(Cause::foreign) + 1;

/// What an item of a parameter file means.
enum class ItemMeaning : std::uint8_t { text, number, serialPort, calibrationFactor };

/// What happened and to what; what does not apply is empty. Whoever shows it makes the sentence, in the user's
/// language.
struct Facts {
  Cause cause;
  std::string path = {};         ///< as the program names it
  std::string placeOnDisk = {};  ///< of a file that lies elsewhere than `path` says
  std::string newPath = {};
  std::string text = {};          ///< what was read, at most 40 bytes
  bool notOrdinary = false;       ///< the reason is that `path` is a folder or a device
  std::string systemReason = {};  ///< the reason in the system's own words
  // Where it happened.
  std::string installation = {};  ///< while this folder was being installed
  std::string parameterFile = {};
  int item = 0;  ///< of `parameterFile`, from 1
  ItemMeaning meaning = ItemMeaning::text;
  std::optional<int> block = {};  ///< of the recording being read
};

/// A fault of the running operation. It ends that operation, never the program, except at start-up. what() is a line
/// for programmers, not for users.
struct RuntimeError : std::runtime_error {
  explicit RuntimeError(Cause cause);
  explicit RuntimeError(Facts happened);
  [[nodiscard]] const Facts& facts() const { return *facts_; }
  Fault fault;

 private:
  std::shared_ptr<const Facts> facts_;  // shared: an exception must be copied without one
};

[[nodiscard]] Fault kindOf(Cause cause);

/// The facts of any exception: a RuntimeError's own, else `foreign`.
[[nodiscard]] Facts factsOf(const std::exception& fault);

}  // namespace korvinel
