#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <csignal>

#include "campaign.h"
#include "platform/posix/disk_files.h"
#include "recorded_examination.h"
#include "temporary_folder.h"
#include "values/runtime_error.h"

/// The disk is full, disappears or refuses writes at any moment of a recording: there is a message, what was written is
/// kept, and the acquisition continues.
namespace korvinel {
namespace {

using platform::MemoryFiles;

constexpr int blocks = 3;
const std::string dataFile = recordings::folder + "prova.QVD";

/// The content of the temporary file or, if it was set aside, of that file; "" if there is neither.
std::string keptContent(const MemoryFiles& files) {
  for (const auto& [path, bytes] : files.content)
    if (path.starts_with(recordings::folder + "Tempor1") && path.ends_with(".XXX")) return bytes;
  return "";
}

struct Shown {
  explicit Shown(const platform::ScriptedDialogs& dialogs) {
    for (const auto& box : dialogs.shown) text += box.text + "\n";
  }
  [[nodiscard]] bool tells(const std::string& words) const { return text.find(words) != std::string::npos; }
  std::string text;
};

/// Without faults: the final content of the temporary file, and the data file.
struct Undisturbed {
  Undisturbed() {
    writeSettings(files);
    RecordedExamination examination(files);
    examination.host.time.when([&] { return examination.state.assembling == 1; },
                               [&] { temporary = examination.state.temporaryContent; });
    examination.run("prova", blocks);
    data = files.content[dataFile];
  }
  MemoryFiles files;
  std::string temporary, data;
};

void expectNothingLost(const MemoryFiles& files, const RecordedExamination& examination, const Undisturbed& whole,
                       std::int64_t space) {
  const Shown shown(examination.host.dialogs);
  EXPECT_GT(examination.state.blockCount, blocks) << "the acquisition went on, space " << space;
  const auto data = files.content.find(dataFile);
  if (data != files.content.end() && data->second == whole.data) return;
  // The data file is incomplete: a box says so, and the temporary file has what there was room for, with nothing
  // shifted.
  EXPECT_TRUE(shown.tells("Errore di scrittura durante la registrazione!") || shown.tells("Impossibile registrare!"))
      << "space " << space << "\n"
      << shown.text;
  if (shown.tells("Impossibile registrare!")) return;
  const std::string kept = keptContent(files);
  EXPECT_TRUE(whole.temporary.starts_with(kept)) << "space " << space;
  std::int64_t room = space;  // minus the other files
  for (const auto& [path, bytes] : files.content)
    if (path.starts_with(recordings::folder) && !path.ends_with(".XXX"))
      room -= static_cast<std::int64_t>(bytes.size());
  EXPECT_EQ(kept.size(), std::min(static_cast<std::size_t>(room), whole.temporary.size())) << "space " << space;
}

TEST(Disk, MayBeFullAtAnyByteOfTheTemporaryFileAndOfTheAssembling) {
  const Undisturbed whole;
  const auto all = static_cast<int>(whole.temporary.size() + whole.data.size()) + 10;
  campaign::Dice dice(5);
  // The short campaign covers every byte of the header and a sample of the others.
  for (int space = 0; space < all; space += campaign::isLong() || space < 60 ? 1 : dice.between(1, 250)) {
    MemoryFiles files;
    writeSettings(files);
    files.freeSpace = space;
    RecordedExamination examination(files);
    examination.host.dialogs.giveRecordingsUp();
    examination.run("prova", blocks);
    expectNothingLost(files, examination, whole, space);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(Disk, ThatIsFullForAWhileCostsNothing) {
  const Undisturbed whole;
  for (int space = 100; space < 3000; space += campaign::isLong() ? 7 : 310) {
    MemoryFiles files;
    writeSettings(files);
    files.freeSpace = space;
    RecordedExamination examination(files);
    auto& host = examination.host;
    host.dialogs.giveRecordingsUp();
    host.time.when(
        [&] { return Shown(host.dialogs).text.empty() && files.freeSpace < 5 && examination.state.blockCount == 3; },
        [&] { files.freeSpace = 1'000'000; });
    examination.run("prova", blocks);
    const bool asWhole = files.content[dataFile] == whole.data || whole.temporary == keptContent(files);
    EXPECT_TRUE(asWhole) << "space " << space;
  }
}

TEST(Disk, MayTurnReadOnlyOrLoseItsFolderAtAnyBlock) {
  const Undisturbed whole;
  for (int block = 1; block <= blocks; ++block)
    for (const bool folderGoes : {false, true}) {
      MemoryFiles files;
      writeSettings(files);
      RecordedExamination examination(files);
      examination.host.dialogs.giveRecordingsUp();
      examination.host.time.when(
          [&] { return examination.state.recordingActive == 1 && examination.state.blockCount == block; },
          [&] {
            if (folderGoes) files.content.erase(recordings::temporary);
            files.readOnly = !folderGoes;
          });
      examination.run("prova", blocks);
      EXPECT_EQ(examination.state.blockCount, blocks + 1);
      if (folderGoes) {
        EXPECT_EQ(files.content[dataFile], whole.data) << "written anew from memory";
      } else {
        EXPECT_TRUE(Shown(examination.host.dialogs).tells("Errore di scrittura durante la registrazione!"));
        EXPECT_TRUE(files.content.contains(recordings::temporary)) << "the temporary file is kept";
      }
    }
}

TEST(Disk, AFileOfTheSameNameThatAppearsMeanwhileIsLeftAlone) {
  const Undisturbed whole;
  MemoryFiles files;
  writeSettings(files);
  RecordedExamination examination(files);
  examination.host.time.when([&] { return examination.state.blockCount == 2; },
                             [&] { files.content[dataFile] = "somebody's"; });
  examination.run("prova", blocks);
  EXPECT_EQ(files.content[dataFile], "somebody's");
  EXPECT_EQ(files.content[recordings::folder + "prova (2).QVD"], whole.data);
}

/// A disk that, once worn, reads the first bytes of a file and then fails.
struct WornFiles : MemoryFiles {
  struct Input : platform::InputFile {
    explicit Input(std::unique_ptr<platform::InputFile> whole) : file(std::move(whole)) {}
    int peek() override { return good(), file->peek(); }
    int take() override { return good(), file->take(); }
    [[nodiscard]] std::int64_t position() const override { return file->position(); }
    [[nodiscard]] std::int64_t size() const override { return file->size(); }
    void good() const {
      if (file->position() > 100) throw RuntimeError(Cause::notReadable);
    }
    std::unique_ptr<platform::InputFile> file;
  };

  std::unique_ptr<platform::InputFile> openForReading(const std::string& path) override {
    auto file = MemoryFiles::openForReading(path);
    if (!worn) return file;
    return std::make_unique<Input>(std::move(file));
  }
  bool worn = false;
};

TEST(Disk, ThatCannotBeReadAnyMoreEndsAReplayBeforeItsFirstBlock) {
  WornFiles files;
  writeSettings(files);
  RecordedExamination examination(files);
  files.content[dataFile] = recordings::file(10);
  examination.host.dialogs.files.push_back(dataFile);
  examination.window.Openx.press();
  files.worn = true;
  examination.window.Slider1.moveTo(4);
  examination.window.Displayx.press();
  ASSERT_EQ(examination.host.faults.size(), 1U);
  EXPECT_EQ(examination.state.blockCount, 0);
  examination.window.HScroll1.moveTo(100);  // redraws the block shown
  EXPECT_EQ(examination.host.faults.size(), 1U);
}

/// Records on a real disk with files limited to `limit` bytes; the child's exit code is the result.
void recordUnderALimit(const std::string& folder, rlim_t limit, const Undisturbed& whole) {
  platform::DiskFiles files(folder);
  writeSettings(files);
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit size{limit, limit};
  setrlimit(RLIMIT_FSIZE, &size);
  RecordedExamination examination(files);
  examination.host.dialogs.giveRecordingsUp();
  examination.run("prova", blocks);
  const Shown shown(examination.host.dialogs);
  const bool goesOn = examination.state.blockCount == blocks + 1;
  const bool told = shown.tells("Errore di scrittura durante la registrazione!");
  _exit(goesOn && told == (limit < whole.data.size()) ? 0 : 1);
}

TEST(Disk, ARealOneWithALimitOnTheSizeOfAFileKeepsWhatItTook) {
  const Undisturbed whole;
  for (const std::size_t limit :
       {std::size_t{600}, std::size_t{1500}, whole.temporary.size(), whole.data.size() - 1, whole.data.size()}) {
    const platform::TemporaryFolder folder;
    const std::string data = folder / "drive_c/QUARVEL5/DATAFILE/";
    std::filesystem::create_directories(data);
    const pid_t child = fork();
    if (child == 0) recordUnderALimit(folder.path(), limit, whole);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "limit " << limit;
    std::string kept;
    for (const auto& file : std::filesystem::directory_iterator(data))
      if (file.path().extension() == ".XXX") kept = platform::contentOf(file.path());
    if (limit < whole.data.size()) {
      EXPECT_EQ(kept, whole.temporary.substr(0, limit)) << "limit " << limit;
    } else {
      EXPECT_EQ(platform::contentOf(data + "prova.QVD"), whole.data);
    }
  }
}

}  // namespace
}  // namespace korvinel
