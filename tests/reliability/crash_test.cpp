#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <limits>

#include "campaign.h"
#include "dying_files.h"
#include "platform/host_paths.h"
#include "platform/posix/disk_files.h"
#include "recorded_examination.h"
#include "recording/channel_record.h"
#include "temporary_folder.h"

/// The program is killed, or the machine loses its power, at any moment of two recordings under one name and their
/// assembling. A child process records on a real disk and tells what it has accepted; what is left must hold it.
namespace korvinel {
namespace {

using platform::contentOf;
using platform::DiskFiles;

enum class Death { ofTheProgram, ofTheMachine };

// A name that ends in "QVD" is checked as it stands but recorded with a second ending: it can be recorded twice.
const std::string name = "prova.QVD";
const std::string dataFile = "prova.QVD.QVD";

void sendAll(int pipe, const std::string& bytes) {
  for (std::size_t sent = 0; sent < bytes.size();) {
    const ssize_t count = write(pipe, bytes.data() + sent, bytes.size() - sent);
    if (count <= 0) _exit(3);
    sent += static_cast<std::size_t>(count);
  }
}

/// In the child: tells the parent of every block as soon as the program has accepted it, as the bytes that the
/// temporary file is to hold; 'N' begins a new recording, 'B' a block, 'E' says that all is over.
class Witness {
 public:
  Witness(RecordedExamination& examination, int pipe) : examination_(examination), pipe_(pipe) {
    const auto deliver = examination.host.time.onStep;
    examination.host.time.onStep = [this, deliver] {
      deliver();
      look();
    };
  }

 private:
  void look() {
    const MainState& state = examination_.state;
    const auto written = static_cast<std::size_t>(static_cast<int>(state.temporaryWritten));
    if (written < told_) told_ = 0;
    if (written == told_) return;
    if (told_ == 0) told_ = state.temporaryContent.find('\n') + 1, sendAll(pipe_, "N");
    for (; told_ + blockBytes <= written; told_ += blockBytes)
      sendAll(pipe_, "B" + state.temporaryContent.substr(told_, blockBytes));
  }

  RecordedExamination& examination_;
  int pipe_;
  std::size_t told_ = 0;
};

[[noreturn]] void recordTwice(const std::string& folder, int lastStep, Death death, int pipe) {
  DiskFiles disk(folder);
  writeSettings(disk);
  DyingFiles* dying = nullptr;
  DyingFiles files(disk, lastStep, [&] {
    if (death == Death::ofTheMachine)
      for (const auto& [path, length] : dying->synchronised())
        std::filesystem::resize_file(platform::hostPath(folder, path), length);
    kill(getpid(), SIGKILL);
  });
  dying = &files;
  RecordedExamination examination(files);
  const Witness witness(examination, pipe);
  examination.run(name, 7);
  examination.run(name, 4);
  sendAll(pipe, "E" + std::to_string(files.steps()));
  _exit(0);
}

/// What the child told before it died.
struct Testimony {
  std::vector<std::vector<std::string>> recordings;  ///< blocks of each
  int steps = -1;                                    ///< of a child that came to its end
};

Testimony read(const std::string& told) {
  Testimony testimony;
  for (std::size_t at = 0; at < told.size();) {
    const char kind = told[at++];
    if (kind == 'N') testimony.recordings.emplace_back();
    if (kind == 'E') testimony.steps = std::stoi(told.substr(at)), at = told.size();
    if (kind != 'B') continue;
    if (at + blockBytes <= told.size()) testimony.recordings.back().push_back(told.substr(at, blockBytes));
    at += blockBytes;
  }
  return testimony;
}

Testimony recordInAChild(const std::string& folder, int lastStep, Death death) {
  std::filesystem::create_directories(folder + "/drive_c/QUARVEL5/DATAFILE");
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    recordTwice(folder, lastStep, death, ends[1]);
  }
  close(ends[1]);
  std::string told;
  char buffer[4096];
  for (ssize_t count = 0; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
    told.append(buffer, static_cast<std::size_t>(count));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return read(told);
}

/// Everything that lies in the data folder, one behind the other.
std::string everythingIn(const std::string& folder) {
  std::string all;
  for (const auto& file : std::filesystem::directory_iterator(folder + "/drive_c/QUARVEL5/DATAFILE"))
    all += contentOf(file.path());
  return all;
}

/// Whether the blocks stand one behind the other in `bytes`, the last `missing` at most left out.
bool holds(const std::string& bytes, const std::vector<std::string>& blocks, std::size_t missing) {
  std::string wanted;
  for (std::size_t i = 0; i + missing < blocks.size(); ++i) wanted += blocks[i];
  return bytes.find(wanted) != std::string::npos;
}

/// What the next start of the program makes of it: the left-over is set aside under a name of its own, and said so.
void expectThatTheNextRecordingSparesIt(const std::string& folder) {
  const std::string before = contentOf(folder + "/drive_c/QUARVEL5/DATAFILE/Tempor1.XXX");
  const std::size_t header = before.find('\n');
  const bool leftOver = header != std::string::npos && before.size() > header + 1;
  DiskFiles disk(folder);
  RecordedExamination examination(disk, 2);
  examination.run("dopo", 1);
  if (leftOver) {
    EXPECT_NE(everythingIn(folder).find(before), std::string::npos);
  }
  EXPECT_EQ(examination.host.dialogs.shown.front().text.starts_with("Una registrazione precedente"), leftOver);
}

/// The blocks of a data file's bytes, "" where it is none: behind the header and its notes.
std::string blocksOf(const std::string& file) {
  const std::size_t whole = file.size() / blockBytes * blockBytes;
  return whole == 0 ? "" : file.substr(file.size() - whole);
}

/// `korvinel-recording recover` makes a data file of the temporary file whose blocks are the whole ones, byte for byte.
void expectThatItCanBeRecovered(const std::string& folder) {
#ifdef KORVINEL_RECORDING_PROGRAM
  const std::string temporary = folder + "/drive_c/QUARVEL5/DATAFILE/Tempor1.XXX";
  const std::string content = contentOf(temporary);
  const std::size_t header = content.find('\n') + 1;
  if (header == 0 || content.size() < header + blockBytes) return;
  const std::size_t whole = (content.size() - header) / blockBytes * blockBytes;
  const std::string recovered = folder + "/recovered.QVD";
  const std::string command =
      std::string(KORVINEL_RECORDING_PROGRAM) + " recover '" + temporary + "' -o '" + recovered + "' 2>/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
  EXPECT_EQ(blocksOf(contentOf(recovered)), content.substr(header, whole));
#else
  (void)folder;
#endif
}

int stepsInAll() {
  const platform::TemporaryFolder folder;
  return recordInAChild(folder.path(), std::numeric_limits<int>::max(), Death::ofTheProgram).steps;
}

/// Deaths at random steps, and how many blocks the children told of before.
struct Deaths {
  Death death;
  std::size_t mayBeMissing;  ///< of the last blocks of a running recording
  int witnessed = 0;

  void happen(std::uint64_t seed) {
    const int steps = stepsInAll();
    ASSERT_GT(steps, 100);
    campaign::Dice dice(seed);
    const int moments = campaign::size(25, 200);
    for (int i = 0; i < moments && !testing::Test::HasFailure(); ++i) dieAt(dice.below(steps));
    std::printf("%d deaths, %d blocks had been accepted\n", moments, witnessed);
    EXPECT_GT(witnessed, 4 * moments);
  }

  void dieAt(int step) {
    const platform::TemporaryFolder folder;
    const Testimony testimony = recordInAChild(folder.path(), step, death);
    const std::string left = everythingIn(folder.path());
    for (std::size_t i = 0; i < testimony.recordings.size(); ++i) {
      const auto& blocks = testimony.recordings[i];
      const bool running = i + 1 == testimony.recordings.size();
      EXPECT_TRUE(holds(left, blocks, running ? mayBeMissing : 0))
          << "recording " << i + 1 << " of " << blocks.size() << " blocks, died at step " << step;
      witnessed += static_cast<int>(blocks.size());
    }
    expectThatItCanBeRecovered(folder.path());
    expectThatTheNextRecordingSparesIt(folder.path());
  }
};

TEST(Crash, OfTheProgramLosesNoBlockThatWasAccepted) { Deaths{Death::ofTheProgram, 0}.happen(9); }

TEST(Crash, OfTheMachineLosesAtMostFourBlocksOfARunningRecording) { Deaths{Death::ofTheMachine, 4}.happen(10); }

}  // namespace
}  // namespace korvinel
