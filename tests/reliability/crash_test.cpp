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
#include "recording/data_paths.h"
#include "temporary_folder.h"

/// The program is killed, or the machine loses power, at any moment of two recordings and their assembling. A child
/// process records on a real disk and reports what it has accepted; the files left behind must contain it.
namespace korvinel {
namespace {

using platform::contentOf;
using platform::DiskFiles;

enum class Death { ofTheProgram, ofTheMachine };

const std::vector<std::string> names = {"prima", "seconda"};
const std::vector<std::string> subjects = {"Rossi", "Verdi"};
const std::vector<std::string> notes = {"occhi chiusi", "respiro profondo"};

void sendAll(int pipe, const std::string& bytes) {
  for (std::size_t sent = 0; sent < bytes.size();) {
    const ssize_t count = write(pipe, bytes.data() + sent, bytes.size() - sent);
    if (count <= 0) _exit(3);
    sent += static_cast<std::size_t>(count);
  }
}

/// In the child: reports each block to the parent once the program has accepted it, as the bytes for the temporary
/// file, and the note once it is confirmed. 'N' begins a recording, 'B' a block, 'M' is the note, 'A' the beginning of
/// the assembling, 'E' the end.
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
    tellNote();
    tellAssembling();
    const auto written = static_cast<std::size_t>(static_cast<int>(state.temporaryWritten));
    if (written < told_) told_ = 0, noteTold_ = assemblingTold_ = false;
    if (written == told_) return;
    if (told_ == 0) told_ = state.temporaryContent.find('\n') + 1, sendAll(pipe_, "N");
    for (; told_ + blockBytes <= written; told_ += blockBytes)
      sendAll(pipe_, "B" + state.temporaryContent.substr(told_, blockBytes));
  }

  void tellNote() {
    const MainState& state = examination_.state;
    if (told_ == 0 || noteTold_ || state.noteCount == 0 || examination_.window.noteBox.enabled()) return;
    noteTold_ = true;
    sendAll(pipe_, "M");
  }

  void tellAssembling() {
    if (told_ == 0 || assemblingTold_ || examination_.state.assembling == 0) return;
    assemblingTold_ = true;
    sendAll(pipe_, "A");
  }

  RecordedExamination& examination_;
  int pipe_;
  bool noteTold_ = false, assemblingTold_ = false;
  std::size_t told_ = 0;
};

[[noreturn]] void recordTwice(const std::string& folder, int lastStep, Death death, int pipe) {
  DiskFiles disk(folder);
  writeSettings(disk);
  DyingFiles* dying = nullptr;
  campaign::Dice dice(static_cast<std::uint64_t>(lastStep));
  DyingFiles files(disk, lastStep, [&] {
    if (death == Death::ofTheMachine) dying->losePower(dice);
    kill(getpid(), SIGKILL);
  });
  dying = &files;
  RecordedExamination examination(files);
  const Witness witness(examination, pipe);
  examination.run(names[0], 7, subjects[0], notes[0]);
  examination.run(names[1], 4, subjects[1], notes[1]);
  sendAll(pipe, "E" + std::to_string(files.steps()));
  _exit(0);
}

/// The temporary file and the side file that an earlier crash has left of a recording.
struct LeftOver {
  LeftOver() {
    platform::MemoryFiles files;
    writeSettings(files);
    RecordedExamination examination(files, 3);
    examination.host.time.when([&] { return examination.state.stopRequested == 1; },
                               [&] {
                                 blocks = files.content.at(recordings::temporary);
                                 notes = files.content.at(sideFilePath);
                               });
    examination.run("mai", 3, "Bianchi", "mai concluso");
  }
  void putInto(const std::string& folder) const {
    platform::writeFile(folder + "/drive_c/QUARVEL5/DATAFILE/Tempor1.XXX", blocks);
    platform::writeFile(folder + "/drive_c/QUARVEL5/DATAFILE/Tempor1.NOT", notes);
  }
  std::string blocks, notes;
};

/// What the child reported before it died.
struct Testimony {
  std::vector<std::vector<std::string>> recordings;  ///< the blocks of each
  std::vector<bool> noteConfirmed;                   ///< for each
  bool runs = false;                                 ///< the assembling of the last one has not begun
  int steps = -1;                                    ///< the steps of a child that reached its end
};

Testimony read(const std::string& told) {
  Testimony testimony;
  for (std::size_t at = 0; at < told.size();) {
    const char kind = told[at++];
    if (kind == 'N') testimony.recordings.emplace_back(), testimony.noteConfirmed.push_back(false);
    if (kind == 'N' || kind == 'A') testimony.runs = kind == 'N';
    if (kind == 'M') testimony.noteConfirmed.back() = true;
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

/// The contents of all files in the data folder, concatenated.
std::string everythingIn(const std::string& folder) {
  std::string all;
  for (const auto& file : std::filesystem::directory_iterator(folder + "/drive_c/QUARVEL5/DATAFILE"))
    all += contentOf(file.path());
  return all;
}

/// Whether `bytes` contains the blocks in sequence, except at most the last `missing`.
bool holds(const std::string& bytes, const std::vector<std::string>& blocks, std::size_t missing) {
  std::string wanted;
  for (std::size_t i = 0; i + missing < blocks.size(); ++i) wanted += blocks[i];
  return bytes.find(wanted) != std::string::npos;
}

/// The next recording must set the left-over file aside and report it.
void expectThatTheNextRecordingSparesIt(const std::string& folder) {
  const std::string before = contentOf(folder + "/drive_c/QUARVEL5/DATAFILE/Tempor1.XXX");
  const std::string side = contentOf(folder + "/drive_c/QUARVEL5/DATAFILE/Tempor1.NOT");
  const std::size_t header = before.find('\n');
  const bool leftOver = header != std::string::npos && before.size() > header + 1;
  DiskFiles disk(folder);
  RecordedExamination examination(disk, 2);
  examination.run("dopo", 1);
  if (leftOver) {
    EXPECT_NE(everythingIn(folder).find(before), std::string::npos);
    EXPECT_NE(everythingIn(folder).find(side), std::string::npos);
  }
  EXPECT_EQ(examination.host.dialogs.shown.front().text.starts_with("Una registrazione precedente"), leftOver);
}

/// The blocks of a data file, without header and notes; "" if there are none.
std::string blocksOf(const std::string& file) {
  const std::size_t whole = file.size() / blockBytes * blockBytes;
  return whole == 0 ? "" : file.substr(file.size() - whole);
}

/// The data file that `korvinel-recording recover` makes from the temporary file, "" if that has no whole block. Checks
/// that it has every whole block, byte for byte.
std::string recovered(const std::string& folder) {
#ifdef KORVINEL_RECORDING_PROGRAM
  const std::string temporary = folder + "/drive_c/QUARVEL5/DATAFILE/Tempor1.XXX";
  const std::string content = contentOf(temporary);
  const std::size_t header = content.find('\n') + 1;
  if (header == 0) return "";
  // Zeros left by the power failure are not samples.
  const std::size_t samples = std::min(content.find('\0', header), content.size()) - header;
  const std::size_t whole = samples / blockBytes * blockBytes;
  if (whole == 0) return "";
  const std::string recording = folder + "/recovered.QVD";
  const std::string command =
      std::string(KORVINEL_RECORDING_PROGRAM) + " recover '" + temporary + "' -o '" + recording + "' 2>/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
  EXPECT_EQ(blocksOf(contentOf(recording)), content.substr(header, whole));
  return contentOf(recording);
#else
  (void)folder;
  return "";
#endif
}

/// Every confirmed note is in its own recording, and in no other.
void expectNamesAndNotes(const std::string& folder, const Testimony& testimony) {
  const std::string left = recovered(folder);
  for (std::size_t i = 0; i < testimony.recordings.size(); ++i) {
    const std::string data = contentOf(folder + "/drive_c/QUARVEL5/DATAFILE/" + names[i] + ".QVD");
    const std::string ofThisOne = "\"" + subjects[i] + "\",\"21/11/2026 V3\",\"4canali\",1\r\n";
    const bool running = i + 1 == testimony.recordings.size();
    const bool hasBlocks = data.find(ofThisOne) != std::string::npos || left.starts_with(ofThisOne);
    if (!running) {
      EXPECT_NE(data.find(ofThisOne), std::string::npos);
    }
    if (!testimony.noteConfirmed[i] || !hasBlocks) continue;
    const bool inData = data.find(",\"" + notes[i] + "\"\r\n") != std::string::npos;
    const bool inRecovered = left.starts_with(ofThisOne) && left.find(",\"" + notes[i] + "\"\r\n") != std::string::npos;
    EXPECT_TRUE(inData || inRecovered) << "the note of recording " << i + 1;
    if (left.starts_with(ofThisOne)) {
      EXPECT_EQ(left.find(notes[1 - i]), std::string::npos);
    }
  }
}

int stepsInAll() {
  const platform::TemporaryFolder folder;
  LeftOver().putInto(folder.path());
  return recordInAChild(folder.path(), std::numeric_limits<int>::max(), Death::ofTheProgram).steps;
}

/// Crashes at random steps, and the number of blocks that the children reported before.
struct Deaths {
  Death death;
  std::size_t mayBeMissing;  ///< of the last blocks of a running recording, after a power failure
  LeftOver earlier = {};
  int witnessed = 0, confirmed = 0;

  void happen(std::uint64_t seed) {
    const int steps = stepsInAll();
    ASSERT_GT(steps, 100);
    campaign::Dice dice(seed);
    const int moments = campaign::size(25, 200);
    for (int i = 0; i < moments && !testing::Test::HasFailure(); ++i) dieAt(dice.below(steps));
    std::printf("%d deaths, %d blocks had been accepted and %d notes confirmed\n", moments, witnessed, confirmed);
    EXPECT_GT(witnessed, 4 * moments);
    EXPECT_GT(2 * confirmed, moments);
  }

  void dieAt(int step) {
    const platform::TemporaryFolder folder;
    earlier.putInto(folder.path());
    const Testimony testimony = recordInAChild(folder.path(), step, death);
    const std::string left = everythingIn(folder.path());
    for (std::size_t i = 0; i < testimony.recordings.size(); ++i) {
      const auto& blocks = testimony.recordings[i];
      const bool running = testimony.runs && i + 1 == testimony.recordings.size();
      SCOPED_TRACE("recording " + std::to_string(i + 1) + " of " + std::to_string(blocks.size()) +
                   " blocks, died at step " + std::to_string(step));
      EXPECT_TRUE(holds(left, blocks, running ? mayBeMissing : 0));
      witnessed += static_cast<int>(blocks.size());
    }
    expectNamesAndNotes(folder.path(), testimony);
    for (std::size_t i = 0; i < testimony.recordings.size(); ++i) confirmed += testimony.noteConfirmed[i];
    expectThatTheNextRecordingSparesIt(folder.path());
    SCOPED_TRACE("died at step " + std::to_string(step));
    EXPECT_NE(everythingIn(folder.path()).find(earlier.blocks), std::string::npos);
    EXPECT_NE(everythingIn(folder.path()).find(earlier.notes), std::string::npos);
  }
};

TEST(Crash, OfTheProgramLosesNoBlockThatWasAccepted) { Deaths{Death::ofTheProgram, 0}.happen(9); }

TEST(Crash, OfTheMachineLosesAtMostFourBlocksOfARunningRecording) { Deaths{Death::ofTheMachine, 4}.happen(10); }

}  // namespace
}  // namespace korvinel
