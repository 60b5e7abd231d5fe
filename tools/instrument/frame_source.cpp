#include "instrument/frame_source.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace korvinel::instrument {
namespace {

class ModelSource final : public FrameSource {
 public:
  ModelSource(std::vector<ModelStep> steps, std::uint64_t seed) : model_(std::move(steps), seed) {}
  std::optional<Frame> nextFrame() override { return model_.nextFrame(); }

 private:
  SignalModel model_;
};

class RecordingSource final : public FrameSource {
 public:
  RecordingSource(std::string bytes, bool once) : bytes_(std::move(bytes)), once_(once) {}

  std::optional<Frame> nextFrame() override {
    if (position_ == bytes_.size()) {
      if (once_) return std::nullopt;
      position_ = 0;
    }
    Frame frame;
    for (std::uint8_t& sample : frame) sample = static_cast<std::uint8_t>(bytes_[position_++]);
    return frame;
  }

 private:
  std::string bytes_;
  bool once_;
  std::size_t position_ = 0;
};

[[noreturn]] void refuse(const std::filesystem::path& path, const std::string& why) {
  throw std::runtime_error("cannot play '" + path.string() + "': " + why);
}

}  // namespace

std::unique_ptr<FrameSource> modelSource(std::vector<ModelStep> steps, std::uint64_t seed) {
  return std::make_unique<ModelSource>(std::move(steps), seed);
}

std::unique_ptr<FrameSource> recordingSource(std::string bytes, bool once) {
  if (bytes.empty() || bytes.size() % 4 != 0) throw std::invalid_argument("a recording consists of whole frames");
  return std::make_unique<RecordingSource>(std::move(bytes), once);
}

std::string readRecording(const std::filesystem::path& path) {
  std::error_code fault;
  const auto status = std::filesystem::status(path, fault);
  if (!std::filesystem::exists(status)) refuse(path, "no such file");
  if (!std::filesystem::is_regular_file(status)) refuse(path, "not a regular file");
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  if (!file) refuse(path, "it cannot be opened for reading");
  if (file.peek() != std::ifstream::traits_type::eof()) content << file.rdbuf();
  if (file.bad() || content.fail()) refuse(path, "it cannot be read");
  std::string bytes = std::move(content).str();
  if (bytes.empty()) refuse(path, "the file is empty");
  if (bytes.size() % 4 != 0)
    refuse(path, "its length of " + std::to_string(bytes.size()) + " bytes is no multiple of 4 (frames of 4 bytes)");
  return bytes;
}

}  // namespace korvinel::instrument
