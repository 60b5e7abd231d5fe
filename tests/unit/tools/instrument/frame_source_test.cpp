#include "instrument/frame_source.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <fstream>

namespace korvinel::instrument {
namespace {

namespace fs = std::filesystem;

class ReadRecording : public testing::Test {
 protected:
  ReadRecording() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  ~ReadRecording() override { fs::remove_all(folder_); }

  fs::path fileWith(const std::string& bytes) const {
    std::ofstream(folder_ / "eeg.raw", std::ios::binary) << bytes;
    return folder_ / "eeg.raw";
  }

  static std::string refusalOf(const fs::path& path) {
    try {
      (void)readRecording(path);
    } catch (const std::runtime_error& refusal) {
      return refusal.what();
    }
    return "";
  }

  fs::path folder_ = fs::path(testing::TempDir()) / ("recording-" + std::to_string(::getpid()));
};

TEST_F(ReadRecording, KeepsEveryByte) {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  EXPECT_EQ(readRecording(fileWith(bytes)), bytes);
}

TEST_F(ReadRecording, RefusesWhatIsNoRecordingAndSaysWhy) {
  EXPECT_NE(refusalOf(folder_ / "missing.raw").find("no such file"), std::string::npos);
  EXPECT_NE(refusalOf(folder_).find("not a regular file"), std::string::npos);
  EXPECT_NE(refusalOf(fileWith("")).find("the file is empty"), std::string::npos);
  EXPECT_NE(refusalOf(fileWith("12345")).find("5 bytes is no multiple of 4"), std::string::npos);
}

TEST(RecordingSource, StartsAgainAtItsEnd) {
  const auto source = recordingSource("abcdABCD", false);
  const Frame first{'a', 'b', 'c', 'd'}, second{'A', 'B', 'C', 'D'};
  EXPECT_EQ(source->nextFrame(), first);
  EXPECT_EQ(source->nextFrame(), second);
  EXPECT_EQ(source->nextFrame(), first);
}

TEST(RecordingSource, EndsForGoodWhenPlayedOnce) {
  const auto source = recordingSource("abcd", true);
  EXPECT_EQ(source->nextFrame(), (Frame{'a', 'b', 'c', 'd'}));
  EXPECT_EQ(source->nextFrame(), std::nullopt);
  EXPECT_EQ(source->nextFrame(), std::nullopt);
}

TEST(RecordingSource, RefusesABrokenFrame) {
  EXPECT_THROW((void)recordingSource("abcde", true), std::invalid_argument);
  EXPECT_THROW((void)recordingSource("", true), std::invalid_argument);
}

TEST(ModelSource, StreamsItsModel) {
  SignalModel model(parseModels("drowsy"), 4);
  const auto source = modelSource(parseModels("drowsy"), 4);
  for (int frame = 0; frame < 100; ++frame) EXPECT_EQ(source->nextFrame(), model.nextFrame());
}

}  // namespace
}  // namespace korvinel::instrument
