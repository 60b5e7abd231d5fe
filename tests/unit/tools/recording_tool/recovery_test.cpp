#include "recording_tool/recovery.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include "platform/files.h"
#include "recording/side_file_line.h"
#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

using testing::HasSubstr;

std::string temporaryFile(int blocks) {
  std::string bytes = "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n";
  for (int n = 1; n <= blocks; ++n) bytes += recordings::block(recordings::levelOf(n));
  return bytes;
}

std::string sideFile(const std::string& subject = "Rossi") {
  return checkedLine("\"temporaneo\",\"" + subject + "\",\"21/11/2026\",\"4canali\"") +
         checkedLine("\"nomi\",\"Rossi Anna\",\"21/11/2026\",\"prova.QVD\"") + checkedLine("\"note\",2") +
         checkedLine("\"nota\",1,2,\"occhi chiusi\"") + checkedLine("\"nota\",2,4,\"\"") +
         checkedLine("\"nota\",2,4,\"occhi aperti\"");
}

struct Folder : TemporaryFolder {
  /// The lines reported by a recovery, or the error; the recording is in `recovered`.
  std::string recoverBytes(const std::string& bytes, const std::string& notes = "") {
    const std::string temporary = writeFile(*this / "Tempor1.XXX", bytes);
    std::string told;
    const std::string error = errorOf([&] {
      for (const std::string& line : recover(temporary, notes, *this / "a.QVD", true)) told += line + "\n";
    });
    recovered = error.empty() ? bytesOf(*this / "a.QVD") : "";
    EXPECT_EQ(bytesOf(temporary), bytes) << "it is left as it is";
    return told + error;
  }
  std::string recovered;
};

TEST(Recovery, KeepsEveryWholeBlockWhereverTheFileEnds) {
  const std::string whole = temporaryFile(3);
  for (std::size_t cut = 0; cut <= 1036; cut += 7) {
    Folder folder;
    const std::string told = folder.recoverBytes(whole.substr(0, whole.size() - cut));
    EXPECT_TRUE(folder.recovered == recordings::file(cut == 0 ? 3 : 2)) << cut << told;
    if (cut > 0 && cut < 1036) {
      EXPECT_THAT(told, HasSubstr("; " + std::to_string(1036 - cut) + " bytes of a block"));
    }
  }
}

TEST(Recovery, BringsNamesAndNotesBack) {
  Folder folder;
  writeFile(folder / "Tempor1.NOT", sideFile());
  EXPECT_EQ(folder.recoverBytes(temporaryFile(1)), "was to be called prova.QVD\n1 block recovered\n");
  EXPECT_EQ(folder.recovered,
            "\"Rossi Anna\",\"21/11/2026 V3\",\"4canali\",2\r\n2,\"occhi chiusi\"\r\n"
            "4,\"occhi aperti\"\r\n" +
                recordings::block(recordings::levelOf(1)));
}

TEST(Recovery, TakesNotesFromWhereItIsTold) {
  Folder folder;
  const std::string notes = writeFile(folder / "altrove", sideFile());
  EXPECT_THAT(folder.recoverBytes(temporaryFile(1), notes), HasSubstr("prova.QVD"));
  EXPECT_THAT(folder.recoverBytes(temporaryFile(1), folder / "niente"), HasSubstr("niente: cannot be read"));
  EXPECT_EQ(folder.recovered, "");
}

TEST(Recovery, NeverTakesAnothersNotes) {
  Folder folder;
  writeFile(folder / "Tempor1.NOT", sideFile("Verdi"));
  EXPECT_THAT(folder.recoverBytes(temporaryFile(1)), HasSubstr("belongs to another recording"));
  EXPECT_EQ(folder.recovered, recordings::file(1));
}

TEST(Recovery, OfADamagedSideFileTakesWhatIsWhole) {
  const std::string whole = sideFile();
  for (std::size_t cut = 1; cut < whole.size(); cut += 11) {
    Folder folder;
    writeFile(folder / "Tempor1.NOT", whole.substr(0, whole.size() - cut));
    (void)folder.recoverBytes(temporaryFile(2));
    EXPECT_TRUE(folder.recovered.ends_with(temporaryFile(2).substr(temporaryFile(0).size()))) << cut;
  }
  Folder folder;
  writeFile(folder / "Tempor1.NOT", whole.substr(0, 250) + std::string(40, '\0') + "\r\n");
  EXPECT_THAT(folder.recoverBytes(temporaryFile(2)), HasSubstr("1 damaged line left out"));
}

TEST(Recovery, RefusesWhatIsNoTemporaryFileWhateverItIsCalled) {
  for (const std::string& bytes :
       {std::string(), std::string("abc"), temporaryFile(0), temporaryFile(1).substr(0, 1000), recordings::file(3),
        recordings::file(3, {{2, "a"}, {3, "b"}}), recordings::header({{2, "a"}}, "V4") + "1,2,3",
        std::string(100'000, '\0'), "\"Rossi\",\"21/11/2026\",\"4canali\",1\r\n" + temporaryFile(1),
        "\"Rossi\",\"21-11-2026\",\"4canali\"\r\n" + recordings::block(100),
        "\"Rossi\",\"21/11/2026\",\"8canali\"\r\n" + recordings::block(100)}) {
    Folder folder;
    EXPECT_NE(folder.recoverBytes(bytes), "") << bytes.size();
    EXPECT_EQ(folder.recovered, "") << bytes.substr(0, 50);
    EXPECT_EQ(entriesIn(folder.path()), 1) << bytes.substr(0, 50);
  }
  Folder folder;
  EXPECT_THAT(folder.recoverBytes(recordings::file(3)), HasSubstr("is no temporary file but a finished recording"));
}

TEST(Recovery, KeepsDamagedBlocksInTheirPlacesAndLeavesADeadTailOut) {
  std::string bytes = temporaryFile(5);
  const std::size_t header = temporaryFile(0).size();
  bytes.replace(header + 1036 + 100, 500, std::string(500, '\0'));
  Folder folder;
  EXPECT_THAT(folder.recoverBytes(bytes), HasSubstr("5 blocks recovered; 1 block among them damaged"));
  EXPECT_TRUE(folder.recovered.ends_with(bytes.substr(header)));
  EXPECT_THAT(folder.recoverBytes(temporaryFile(2) + std::string(5000, '\0')),
              HasSubstr("2 blocks recovered; what stands behind byte " + std::to_string(temporaryFile(2).size())));
  EXPECT_EQ(folder.recovered, recordings::file(2));
}

TEST(Recovery, TakesLittleMemoryAndTimeForAHugeSparseFile) {
  Folder folder;
  const std::string temporary = writeFile(folder / "Tempor1.XXX", temporaryFile(2));
  std::filesystem::resize_file(temporary, 3'000'000'000'000);
  rusage before{}, after{};
  getrusage(RUSAGE_SELF, &before);
  (void)recover(temporary, "", folder / "a.QVD", false);
  getrusage(RUSAGE_SELF, &after);
  EXPECT_EQ(bytesOf(folder / "a.QVD"), recordings::file(2));
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 4'000) << "kB";
}

TEST(Recovery, RefusesToReplaceWhatItReads) {
  const TemporaryFolder folder;
  const std::string temporary = writeFile((folder / "Tempor1.XXX"), temporaryFile(2));
  const std::string notes = writeFile(folder / "Tempor1.NOT", sideFile());
  EXPECT_NE(errorOf([&] { (void)recover(temporary, "", temporary, true); }), "");
  EXPECT_NE(errorOf([&] { (void)recover(temporary, notes, notes, true); }), "");
  EXPECT_NE(errorOf([&] { (void)recover(temporary, "", notes, true); }), "");
  EXPECT_TRUE(bytesOf(temporary) == temporaryFile(2));
  EXPECT_TRUE(bytesOf(notes) == sideFile());
}

TEST(Recovery, LeavesAFileAloneThatIsBeingRecordedInto) {
  const TemporaryFolder folder;
  const std::string live = writeFile(folder / "Tempor1.XXX", temporaryFile(2));
  const std::string aside = writeFile(folder / "Tempor1 2026-11-21 10.00.00.XXX", temporaryFile(2));
  {
    const auto recording = platform::hostFiles("")->lock(
        folder / "Korvinel.lock", "utente anna, computer studio-1, processo 4711,\rdalle 10:05 del 21/11/2026");
    const std::string error = errorOf([&] { (void)recover(live, "", folder / "a.QVD", false); });
    EXPECT_EQ(error, live +
                         ": is being recorded into, and is left alone: by user anna on computer studio-1, process "
                         "4711, since 10:05 on 21/11/2026");
    EXPECT_FALSE(std::filesystem::exists(folder / "a.QVD"));
    EXPECT_EQ(errorOf([&] { (void)recover(aside, "", folder / "b.QVD", false); }), "");
  }
  EXPECT_EQ(errorOf([&] { (void)recover(live, "", folder / "a.QVD", false); }), "");
}

TEST(Recovery, SeesARecordingThroughALinkToItsFile) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "data");
  writeFile(folder / "data/Tempor1.XXX", temporaryFile(2));
  std::filesystem::create_symlink(folder / "data/Tempor1.XXX", folder / "link");
  const auto recording = platform::hostFiles("")->lock(folder / "data/Korvinel.lock", "anna");
  EXPECT_EQ(errorOf([&] { (void)recover(folder / "link", "", folder / "a.QVD", false); }),
            folder / "link: is being recorded into, and is left alone: by another program");
}

TEST(Recovery, LeavesNoLockFileWhereNobodyRecords) {
  const TemporaryFolder folder;
  const std::string temporary = writeFile(folder / "Tempor1.XXX", temporaryFile(2));
  (void)recover(temporary, "", folder / "a.QVD", false);
  EXPECT_EQ(entriesIn(folder.path()), 2);
}

}  // namespace
}  // namespace korvinel::tool
