#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace korvinel::tool {

struct ImportOptions {
  std::array<std::string, 4> channels = {"F1", "F2", "T5", "T6"};
  std::optional<std::string> subject;  ///< instead of the file's own
  bool force = false;
};

/// Makes a recording from four channels of an EDF or BDF file: resampled to 128 per second, 1 unit = 1 microvolt,
/// limited to what a recording can hold; annotations become notes. Reports what could not be preserved. ToolError if
/// the file cannot be used.
void importEdf(const std::string& input, const std::string& output, const ImportOptions& options);

struct Imported {
  std::string dataFile;            ///< bytes of the recording
  std::vector<std::string> notes;  ///< what to report to the user
};
/// The same without writing it. `shownAs`: the file's name in errors.
[[nodiscard]] Imported importedFrom(const std::string& input, const std::string& shownAs, const ImportOptions& options);

}  // namespace korvinel::tool
