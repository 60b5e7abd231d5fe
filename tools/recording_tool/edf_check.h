#pragma once

#include <array>
#include <string>
#include <vector>

#include "recording/channel_record.h"
#include "recording_tool/edf_annotations.h"
#include "recording_tool/edf_file.h"
#include "recording_tool/safe_output.h"
#include "values/bounded.h"

namespace korvinel::tool {

constexpr int leastDigital = -128;
constexpr int greatestDigital = 127;

struct EdfDate {
  int year, month, day;
  friend bool operator==(const EdfDate&, const EdfDate&) = default;
};

/// The expected content of an exported file.
struct EdfPlan {
  int blocks = 0;
  std::string person;  ///< ASCII; "" = anonymous
  EdfDate date{1985, 1, 1};
  std::vector<Annotation> annotations;

  /// Each holds one annotation per record.
  [[nodiscard]] int annotationSignals() const {
    const int count = static_cast<int>(annotations.size());
    return (count + blocks - 1) / blocks;
  }
};

/// The samples of one channel in microvolts, as whole numbers -128..127; counts in `limited` those out of range.
[[nodiscard]] std::array<short, samplesPerRecord> digitalSamples(const Bounded<float, 258>& samples, int& limited);

/// Reads a written file back: its size, its header, every annotation and every sample. ToolError if anything differs
/// from the plan or the recording.
void checkEdf(const std::string& recording, const SafeOutput& output, const EdfPlan& plan);

}  // namespace korvinel::tool
