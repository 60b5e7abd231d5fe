#pragma once

#include <memory>
#include <string>
#include <vector>

#include "recording_tool/edf_annotations.h"

struct edf_hdr_struct;

namespace korvinel::tool {

/// An EDF, EDF+, BDF or BDF+ file open for reading, through EDFlib. Signals count from 0.
class EdfFile {
 public:
  /// `shownAs`: its name in errors. ToolError if it is not EDF/BDF, or is discontinuous.
  EdfFile(const std::string& path, const std::string& shownAs);
  ~EdfFile();
  EdfFile(const EdfFile&) = delete;
  EdfFile& operator=(const EdfFile&) = delete;

  [[nodiscard]] const edf_hdr_struct& header() const { return *header_; }
  [[nodiscard]] const std::string& shownAs() const { return shownAs_; }
  [[nodiscard]] std::vector<std::string> labels() const;
  [[nodiscard]] double samplesPerSecond(int signal) const;
  [[nodiscard]] std::vector<Annotation> annotations() const;  ///< in the order of time
  /// The next samples of a signal in its own unit, at most `count`; none at the end.
  [[nodiscard]] std::vector<double> readPhysical(int signal, int count) const;
  [[nodiscard]] std::vector<int> readDigital(int signal, int count) const;

 private:
  std::string shownAs_;
  std::unique_ptr<edf_hdr_struct> header_;
};

/// The person's name in a header; "" if it is left out.
[[nodiscard]] std::string personOf(const edf_hdr_struct& header);

/// The text of a fixed header field, without surrounding blanks.
[[nodiscard]] std::string trimmed(const std::string& text);

}  // namespace korvinel::tool
