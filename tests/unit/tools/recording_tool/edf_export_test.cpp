#include "recording_tool/edf_export.h"

#include "recording_tool/edf_file.h"
#include "recording_tool/edf_import.h"
#include "recording_tool/recording_reader.h"
#include "tool_files.h"
#include "unit/tools/recording_tool/edf_files.h"
#include "values/code_page.h"

namespace korvinel::tool {
namespace {

std::string field(const std::string& header, std::size_t offset, std::size_t length) {
  return trimmed(header.substr(offset, length));
}

TEST(EdfExport, HeaderFollowsTheFormatByteByByte) {
  const TemporaryFolder folder;
  std::string bytes = variedRecording(3, {{2, "n"}});
  bytes.replace(bytes.find("Rossi"), 5, codePageFromUtf8("Niccolò Müller"));
  const std::string edf = (folder / "a.edf");
  exportEdf(writeFile((folder / "a.QVD"), bytes), edf, {});
  const std::string header = bytesOf(edf);
  EXPECT_EQ(field(header, 0, 8), "0");
  EXPECT_EQ(field(header, 8, 80), "X X X Niccolo_Muller");
  EXPECT_EQ(field(header, 88, 80).substr(0, 21), "Startdate 21-NOV-2026");
  EXPECT_EQ(field(header, 168, 16), "21.11.2600.00.00");
  EXPECT_EQ(field(header, 192, 44), "EDF+C");
  EXPECT_EQ(field(header, 236, 8), "3");
  EXPECT_EQ(std::stod(field(header, 244, 8)), 2);
  const int signals = std::stoi(field(header, 252, 4));
  EXPECT_EQ(signals, 6);  // four annotations in three records
  EXPECT_EQ(field(header, 256, 16), "EEG F1");
  EXPECT_EQ(field(header, 256 + 3 * 16, 16), "EEG T6");
  const auto part = [&](int offset, int width, int signal) {
    return field(header, static_cast<std::size_t>(256 + signals * offset + width * signal),
                 static_cast<std::size_t>(width));
  };
  for (int signal = 0; signal < 4; ++signal) {
    EXPECT_FALSE(part(16, 80, signal).empty());  // transducer
    EXPECT_EQ(part(96, 8, signal), "uV");
    EXPECT_EQ(std::stod(part(104, 8, signal)), -128);
    EXPECT_EQ(std::stod(part(112, 8, signal)), 127);
    EXPECT_EQ(part(120, 8, signal), "-128");
    EXPECT_EQ(part(128, 8, signal), "127");
    EXPECT_FALSE(part(136, 80, signal).empty());  // prefilter
    EXPECT_EQ(part(216, 8, signal), "256");
  }
}

TEST(EdfExport, SamplesAreTheRecordingsInMicrovolts) {
  const TemporaryFolder folder;
  const std::string recording = writeFile((folder / "a.QVD"), variedRecording(5));
  exportEdf(recording, (folder / "a.edf"), {});
  const EdfFile edf((folder / "a.edf"), "a.edf");
  RecordingReader reader(recording);
  Block block;
  while (reader.next(block))
    for (int channel = 1; channel <= 4; ++channel) {
      const std::vector<double> microvolts = edf.readPhysical(channel - 1, 256);
      ASSERT_EQ(microvolts.size(), 256U);
      for (int s = 1; s <= 256; ++s)
        ASSERT_EQ(microvolts[static_cast<std::size_t>(s) - 1], static_cast<double>(block[channel][s]) - 128);
    }
  EXPECT_TRUE(edf.readPhysical(0, 1).empty());
}

TEST(EdfExport, AnnotationsTellTheBlocksTimesAndTheNotes) {
  const TemporaryFolder folder;
  const std::string text = "una nota molto lunga, perche' l'operatore racconta tutto quello che vede";
  std::string bytes = variedRecording(
      3, {{2, "occhi"}, {3, "una nota molto lunga perche' l'operatore racconta tutto quello che vede"}});
  exportEdf(writeFile((folder / "a.QVD"), bytes), (folder / "a.edf"), {});
  const auto annotations = EdfFile((folder / "a.edf"), "").annotations();
  ASSERT_EQ(annotations.size(), 6U);
  EXPECT_EQ(annotations[0], (Annotation{0, "block 1 at 0 s"}));
  EXPECT_EQ(annotations[1], (Annotation{2, "block 2 at 3 s"}));
  EXPECT_EQ(annotations[2], (Annotation{2, "occhi"}));
  EXPECT_EQ(annotations[3], (Annotation{4, "block 3 at 6 s"}));
  EXPECT_EQ(annotations[4].text, "una nota molto lunga perche' l'operatore");
}

TEST(EdfExport, AnonymousLeavesThePersonOut) {
  const TemporaryFolder folder;
  const std::string recording = writeFile((folder / "a.QVD"), variedRecording(1));
  exportEdf(recording, (folder / "a.edf"), {.anonymous = true});
  const std::string header = bytesOf((folder / "a.edf"));
  EXPECT_EQ(field(header, 8, 80), "X X X X");
  EXPECT_EQ(header.find("Rossi"), std::string::npos);
  importEdf(folder / "a.edf", folder / "b.QVD", {});
  EXPECT_EQ(RecordingReader(folder / "b.QVD").header().subject, "");
}

TEST(EdfExport, AnExistingFileStaysWithoutForce) {
  const TemporaryFolder folder;
  const std::string recording = writeFile((folder / "a.QVD"), variedRecording(1));
  const std::string edf = writeFile((folder / "a.edf"), "old");
  EXPECT_NE(errorOf([&] { exportEdf(recording, edf, {}); }), "");
  EXPECT_EQ(bytesOf(edf), "old");
  exportEdf(recording, edf, {.force = true});
  EXPECT_GT(bytesOf(edf).size(), 1000U);
  EXPECT_EQ(entriesIn(folder.path()), 2);
}

}  // namespace
}  // namespace korvinel::tool
