#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "instrument/signal_model.h"

namespace korvinel::instrument {

/// The source of the frames that the instrument streams.
struct FrameSource {
  virtual ~FrameSource() = default;
  virtual std::optional<Frame> nextFrame() = 0;  ///< none: the source has ended
};

/// The frames of simulated heads, without end.
[[nodiscard]] std::unique_ptr<FrameSource> modelSource(std::vector<ModelStep> steps, std::uint64_t seed);

/// Plays the raw bytes of a recording: frames of 4 bytes, channels 1..4, unsigned, 128 = 0 uV, 1 unit = 1 uV, nothing
/// else. `once`: ends after the last frame instead of starting again. The length of `bytes` must be a multiple of 4,
/// not 0.
[[nodiscard]] std::unique_ptr<FrameSource> recordingSource(std::string bytes, bool once);

/// Reads such a recording. Throws std::runtime_error with a message for the user if the file is missing, no regular
/// file, unreadable, empty, or of a length that is no multiple of 4.
[[nodiscard]] std::string readRecording(const std::filesystem::path& path);

}  // namespace korvinel::instrument
