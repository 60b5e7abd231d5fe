#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "recording_tool/edf_file.h"

struct soxr;

namespace korvinel::tool {

/// One signal of an EDF file in microvolts, resampled to 128 per second, read piece by piece.
class ChannelStream {
 public:
  /// ToolError if the signal's unit is not a voltage, or its rate too low or too high.
  ChannelStream(const EdfFile& file, int signal);
  ~ChannelStream();
  ChannelStream(ChannelStream&&) noexcept;
  ChannelStream& operator=(ChannelStream&&) = delete;

  /// The next samples, at most `count`; fewer only at the end.
  [[nodiscard]] std::vector<double> take(std::size_t count);

 private:
  void refill();
  void resample(const std::vector<double>& input);

  struct CloseResampler {
    void operator()(soxr* resampler) const;
  };

  const EdfFile* file_;
  int signal_;
  double microvoltsPerUnit_;
  std::unique_ptr<soxr, CloseResampler> resampler_;  ///< none at 128 samples per second
  double ratio_ = 1;
  std::vector<double> ready_;
  bool atEnd_ = false;
};

}  // namespace korvinel::tool
