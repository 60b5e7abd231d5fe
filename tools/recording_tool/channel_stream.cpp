#include "recording_tool/channel_stream.h"

#include <edflib.h>
#include <soxr.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "eeg/block.h"
#include "recording_tool/tool_error.h"
#include "values/number_text.h"

namespace korvinel::tool {
namespace {

constexpr double ownRate = eeg::samplesPerSecond;

double microvoltsIn(const EdfFile& file, int signal) {
  static constexpr std::array<std::pair<const char*, double>, 7> units = {
      {{"uV", 1}, {"\xB5V", 1}, {"\xC2\xB5V", 1}, {"microvolt", 1}, {"mV", 1e3}, {"V", 1e6}, {"nV", 1e-3}}};
  const std::string unit = trimmed(file.header().signalparam[signal].physdimension);
  for (const auto& [name, microvolts] : units)
    if (unit == name) return microvolts;
  throw ToolError(file.shownAs(), "channel " + file.labels()[static_cast<std::size_t>(signal)] + " is in '" + unit +
                                      "', which is no voltage");
}

}  // namespace

void ChannelStream::CloseResampler::operator()(soxr* resampler) const { soxr_delete(resampler); }

ChannelStream::ChannelStream(const EdfFile& file, int signal)
    : file_(&file), signal_(signal), microvoltsPerUnit_(microvoltsIn(file, signal)) {
  constexpr double leastRate = 64;
  constexpr double greatestRate = 1e6;
  const double rate = file.samplesPerSecond(signal);
  if (!(rate >= leastRate && rate <= greatestRate))
    throw ToolError(file.shownAs(), "channel " + file.labels()[static_cast<std::size_t>(signal)] + " has " +
                                        shortestDecimal(rate) + " samples a second, not 64 to 1000000");
  if (rate == ownRate) return;
  ratio_ = ownRate / rate;
  const soxr_io_spec_t doubles = soxr_io_spec(SOXR_FLOAT64_I, SOXR_FLOAT64_I);
  const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_VHQ, 0);
  resampler_.reset(soxr_create(rate, ownRate, 1, nullptr, &doubles, &quality, nullptr));
  if (!resampler_) throw ToolError(file.shownAs(), "cannot be resampled");
}

ChannelStream::~ChannelStream() = default;
ChannelStream::ChannelStream(ChannelStream&&) noexcept = default;

std::vector<double> ChannelStream::take(std::size_t count) {
  while (ready_.size() < count && !atEnd_) refill();
  const auto end = ready_.begin() + static_cast<std::ptrdiff_t>(std::min(count, ready_.size()));
  std::vector<double> taken(ready_.begin(), end);
  ready_.erase(ready_.begin(), end);
  return taken;
}

void ChannelStream::refill() {
  constexpr int pieces = 4096;
  std::vector<double> samples = file_->readPhysical(signal_, pieces);
  for (double& sample : samples) sample *= microvoltsPerUnit_;
  atEnd_ = samples.empty();
  if (resampler_) return resample(samples);
  ready_.insert(ready_.end(), samples.begin(), samples.end());
}

/// Without input: the end, returns what the resampler still holds.
void ChannelStream::resample(const std::vector<double>& input) {
  const std::size_t room = static_cast<std::size_t>(std::ceil(static_cast<double>(input.size()) * ratio_)) + 4096;
  std::vector<double> output(room);
  std::size_t used = 0;
  std::size_t made = 0;
  do {
    std::size_t usedNow = 0;
    made = 0;
    const bool last = input.empty();
    const soxr_error_t error = soxr_process(resampler_.get(), last ? nullptr : input.data() + used, input.size() - used,
                                            &usedNow, output.data(), output.size(), &made);
    if (error != nullptr) throw ToolError(file_->shownAs(), std::string("cannot be resampled: ") + error);
    used += usedNow;
    ready_.insert(ready_.end(), output.begin(), output.begin() + static_cast<std::ptrdiff_t>(made));
  } while (used < input.size() || (input.empty() && made > 0));
}

}  // namespace korvinel::tool
