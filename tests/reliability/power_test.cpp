#include <gtest/gtest.h>

#include <limits>

#include "dying_files.h"
#include "recorded_examination.h"
#include "recording/channel_record.h"
#include "recording/data_paths.h"
#include "recording/side_file.h"
#include "values/runtime_error.h"

/// What must have been forced onto the disk at the moments when the user relies on it.
namespace korvinel {
namespace {

struct PowerFailure : testing::Test {
  explicit PowerFailure(std::unique_ptr<platform::MemoryFiles> disk = std::make_unique<platform::MemoryFiles>())
      : memory(std::move(disk)) {
    writeSettings(*memory);
    examination = std::make_unique<RecordedExamination>(files);
  }

  [[nodiscard]] bool isOnTheDisk(const std::string& path) const {
    const auto file = files.lengths().find(path);
    return file != files.lengths().end() && file->second.written > 0 &&
           file->second.synchronised == file->second.written;
  }

  std::unique_ptr<platform::MemoryFiles> memory;
  DyingFiles files{*memory, std::numeric_limits<int>::max(), [] {}};
  std::unique_ptr<RecordedExamination> examination;
};

TEST_F(PowerFailure, FindsTheFirstBlockAndThenEveryFifthOnTheDisk) {
  std::string forced;
  int looked = 0;
  examination->host.time.onStep = [&, deliver = examination->host.time.onStep] {
    deliver();
    const MainState& state = examination->state;
    const auto bytes = state.temporaryWritten - static_cast<int>(state.temporaryContent.find('\n') + 1);
    if (state.recordingActive == 0 || bytes / blockBytes <= looked) return;
    looked = bytes / blockBytes;
    forced += isOnTheDisk(recordings::temporary) ? '1' : '0';
  };
  examination->run("prova", 11);
  EXPECT_EQ(forced.substr(0, 11), "10000100001");
}

/// In another folder, because the data folder is gone.
TEST_F(PowerFailure, SparesTheFileThatTheUserWasToldOf) {
  const std::string stick = "/media/chiavetta/";
  examination->host.time.when([&] { return examination->state.stopRequested == 1; },
                              [&] { memory->goneFolder = recordings::folder; });
  examination->host.dialogs.choices = {platform::Choice::ok};
  examination->host.dialogs.folders = {stick};
  examination->run("prova", 3);
  EXPECT_TRUE(isOnTheDisk(stick + "prova.QVD"));
}

TEST_F(PowerFailure, SparesTheBlocksAndNotesThatWereSetAside) {
  examination->host.dialogs.giveRecordingsUp();
  examination->host.time.when([&] { return examination->state.assembling == 1; }, [&] { memory->freeSpace = 10; });
  examination->run("prova", 8);
  const std::string aside = examination->state.setAsidePath;
  EXPECT_TRUE(isOnTheDisk(aside)) << aside;
  EXPECT_TRUE(isOnTheDisk(sidePathOf(aside))) << aside;
}

/// A full disk that has room again too late for the data file.
struct LateRoom : platform::MemoryFiles {
  std::unique_ptr<platform::OutputFile> openForAppending(const std::string& path) override {
    if (!path.ends_with(".QVD")) return MemoryFiles::openForAppending(path);
    freeSpace = 1'000'000;
    throw RuntimeError(Facts{.cause = Cause::notWritable, .path = path});
  }
};
struct LatePowerFailure : PowerFailure {
  LatePowerFailure() : PowerFailure(std::make_unique<LateRoom>()) {}
};

TEST_F(LatePowerFailure, SparesTheBlocksThatOnlyTheMemoryHeld) {
  examination->host.dialogs.giveRecordingsUp();
  examination->host.time.when([&] { return examination->state.blockCount == 3; }, [&] { memory->freeSpace = 1500; });
  examination->run("prova", 8);
  const std::string aside = examination->state.setAsidePath;
  EXPECT_TRUE(isOnTheDisk(aside)) << aside;
  EXPECT_GT(files.lengths().at(aside).written, 8U * blockBytes);
}

}  // namespace
}  // namespace korvinel
