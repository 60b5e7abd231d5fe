#include "recording/file_header.h"

#include <gtest/gtest.h>

#include "golden_reference.h"
#include "recordings.h"
#include "values/field_reader.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

FileHeader headerOf(const std::string& bytes) {
  TextSource source(bytes);
  return readHeader(source);
}

TEST(FileHeader, GivesTheTagAndElevenCharactersOfDate) {
  const FileHeader header = headerOf(recordings::header());
  EXPECT_EQ(header.subject, "Rossi");
  EXPECT_EQ(header.dateField, "21/11/2026 V3");
  EXPECT_EQ(header.versionTag, "V3");
  EXPECT_EQ(header.date, "21/11/2026 ");
  EXPECT_EQ(header.noteCount, 1);
  EXPECT_EQ(header.noteTimes[1], 1.0F);
  EXPECT_EQ(header.noteTexts[1], "Nota: ");
}

TEST(FileHeader, LeavesTheSourceAtTheFirstSample) {
  const std::string bytes = recordings::header({{2, "a"}, {5, "b"}}) + ",\"\rraw";
  TextSource source(bytes);
  (void)readHeader(source);
  EXPECT_EQ(source.take(), ',');
}

TEST(FileHeader, LineEndsMayBeLineFeedsAlone) {
  std::string bytes = recordings::header({{2, "a"}, {5, "b"}});
  std::erase(bytes, '\r');
  const FileHeader header = headerOf(bytes);
  EXPECT_EQ(header.noteCount, 2);
  EXPECT_EQ(header.noteTexts[2], "b");
}

TEST(FileHeader, CodePageBecomesUtf8) {
  const FileHeader header = headerOf("\"Nicol\xF2\",\"21/11/2026 V3\",\"4canali\",1\r\n2,\"perch\xE9\"\r\n");
  EXPECT_EQ(header.subject, "Nicol\xC3\xB2");
  EXPECT_EQ(header.noteTexts[1], "perch\xC3\xA9");
}

TEST(FileHeader, TheTypeTagIsNotChecked) {
  EXPECT_EQ(headerOf("\"R\",\"21/11/2026 V4\",\"otto\",0\r\n").versionTag, "V4");
}

TEST(FileHeader, AShortDateFieldGivesWhatThereIs) {
  const FileHeader header = headerOf("\"R\",\"4\",\"4canali\",0\r\n");
  EXPECT_EQ(header.versionTag, "4");
  EXPECT_EQ(header.date, "4");
}

TEST(FileHeader, NoneAndNegativeNoteCountsReadNoNotes) {
  for (const char* count : {"0", "-1", "-32768"}) {
    const FileHeader header = headerOf("\"R\",\"21/11/2026 V3\",\"4canali\"," + std::string(count) + "\r\n5,\"x\"\r\n");
    EXPECT_EQ(header.noteCount, 0) << count;
  }
}

TEST(FileHeader, Of61NotesTheFirst60AreKeptAndTheSamplesFound) {
  recordings::Notes notes;
  for (int i = 1; i <= 61; ++i) notes.emplace_back(i + 1, "nota " + std::to_string(i));
  const std::string bytes = recordings::header(notes) + "S";
  TextSource source(bytes);
  const FileHeader header = readHeader(source);
  EXPECT_EQ(header.notesInFile, 61);
  EXPECT_EQ(header.noteCount, 60);
  EXPECT_EQ(header.noteTexts[60], "nota 60");
  EXPECT_EQ(source.take(), 'S');
}

TEST(FileHeader, BadHeadersAreFaults) {
  const std::string good = recordings::header({{2, "prima"}, {5, "seconda"}});
  const std::string cases[] = {"",
                               good.substr(0, 3),
                               good.substr(0, 20),
                               good.substr(0, good.find("4canali")),
                               good.substr(0, good.find(",2\r\n") + 1),
                               good.substr(0, good.find("seconda") + 3),
                               good.substr(0, good.find("5,")),
                               "\"R\",\"21/11/2026 V3\",\"4canali\",molte\r\n",
                               "\"R\",\"21/11/2026 V3\",\"4canali\",\r\n",
                               "\"R\",\"21/11/2026 V3\",\"4canali\",nan\r\n",
                               "\"R\",\"21/11/2026 V3\",\"4canali\",40000\r\n",
                               "\"R\",\"21/11/2026 V3\",\"4canali\",1e99999\r\n",
                               "\"R\",\"21/11/2026 V3\",\"4canali\",32767\r\n2,\"x\"\r\n",
                               "\"R\",\"21/11/2026 V3\",\"4canali\",1\r\nsei,\"x\"\r\n",
                               std::string(100'000, 'x'),
                               "\"" + std::string(100'000, 'x')};
  for (const std::string& bytes : cases) EXPECT_THROW((void)headerOf(bytes), RuntimeError) << bytes.substr(0, 60);
}

TEST(FileHeader, ANoteTimeBeyondA32BitFloatIsAFaultOfThatTimeAlone) {
  for (const char* time : {"1e39", "-1e39", "1e400"}) {
    const std::string bytes =
        "\"R\",\"21/11/2026 V3\",\"4canali\",2\r\n" + std::string(time) + ",\"x\"\r\n7,\"y\"\r\nS";
    TextSource source(bytes);
    const FileHeader header = readHeader(source);
    EXPECT_EQ(header.noteCount, 2) << time;
    EXPECT_EQ(header.noteTimes[1], 0.0F) << time;
    EXPECT_EQ(header.noteTexts[1], "x") << time;
    EXPECT_EQ(header.noteTimes[2], 7.0F) << time;
    EXPECT_EQ(source.take(), 'S') << time;
  }
}

TEST(FileHeader, AgreesWithTheReferenceRecordings) {
  for (const char* name : {"eeg", "examination"}) {
    const auto expected = golden::reference(std::string(name) + ".opened.json");
    const FileHeader header = headerOf(golden::fileBytes(std::string(name) + ".QVD"));
    EXPECT_EQ(header.subject, expected["subject"].get<std::string>());
    EXPECT_EQ(header.date, expected["recordingDate"].get<std::string>());
    EXPECT_EQ(header.versionTag, expected["fileVersionTag"].get<std::string>());
    ASSERT_EQ(header.noteCount, static_cast<int>(expected["notes"].size()));
    for (int note = 1; note <= header.noteCount; ++note) {
      const auto& reference = expected["notes"][static_cast<std::size_t>(note) - 1];
      EXPECT_EQ(header.noteTimes[note], reference[0].get<float>());
      EXPECT_EQ(header.noteTexts[note], reference[1].get<std::string>());
    }
  }
}

}  // namespace
}  // namespace korvinel
