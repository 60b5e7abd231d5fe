#include "recording_tool/edf_import.h"

#include <cmath>

#include "recording_tool/edf_export.h"
#include "recording_tool/recording_reader.h"
#include "tool_files.h"
#include "unit/tools/recording_tool/edf_files.h"

namespace korvinel::tool {
namespace {

TEST(EdfImport, GivesAnExportedRecordingBackByteForByte) {
  const TemporaryFolder folder;
  const std::string bytes =
      variedRecording(6, {{2, "prima"}, {4, "una nota molto lunga che non sta in una sola annotazione del file EDF"}});
  const std::string recording = writeFile((folder / "a.QVD"), bytes);
  exportEdf(recording, (folder / "a.edf"), {});
  importEdf((folder / "a.edf"), (folder / "b.QVD"), {});
  EXPECT_TRUE(bytesOf((folder / "b.QVD")) == bytes);
}

TEST(EdfImport, ResamplesAnyRateTo128ASecond) {
  const TemporaryFolder folder;
  for (const int rate : {128, 160, 200, 256, 500, 1000}) {
    sineFile((folder / "a.edf"), rate, 20, "mV", 1, 0.05);
    ImportOptions options;
    options.channels = {"F3", "F4", "T5", "T6"};
    options.force = true;
    importEdf((folder / "a.edf"), (folder / "a.QVD"), options);
    RecordingReader reader((folder / "a.QVD"));
    Block block;
    double worst = 0;
    int blocks = 0;
    const double hertz[] = {0, 4, 8, 12, 20};
    for (; reader.next(block); ++blocks)
      for (int channel = 1; channel <= 4; ++channel)
        for (int s = 1; s <= 256; ++s) {
          const double time = blocks * 2 + (s - 1) / 128.0;
          if (time < 1 || time > 19) continue;  // a resampler rings at the beginning and end of the signal
          const double expected = 128 + 50 * std::sin(2 * 3.14159265358979 * hertz[channel] * time);
          worst = std::max(worst, std::abs(expected - static_cast<double>(block[channel][s])));
        }
    EXPECT_EQ(blocks, 10) << rate;
    EXPECT_LT(worst, 0.53) << rate;
  }
}

TEST(EdfImport, NamesTheLabelsWhereAChannelIsMissing) {
  const TemporaryFolder folder;
  sineFile((folder / "a.edf"), 128, 4, "uV", 100, 10);
  const std::string error = errorOf([&] { importEdf((folder / "a.edf"), (folder / "a.QVD"), {}); });
  EXPECT_NE(error.find("has no channel F1"), std::string::npos) << error;
  EXPECT_NE(error.find("ECG, EEG F3-Ref"), std::string::npos) << error;
  EXPECT_EQ(entriesIn(folder.path()), 1);
}

TEST(EdfImport, RefusesWhatIsNoVoltage) {
  const TemporaryFolder folder;
  sineFile((folder / "a.edf"), 128, 4, "degC", 100, 10);
  ImportOptions options;
  options.channels = {"1", "2", "3", "4"};
  EXPECT_NE(errorOf([&] { importEdf((folder / "a.edf"), (folder / "a.QVD"), options); }).find("no voltage"),
            std::string::npos);
}

TEST(EdfImport, RefusesDamagedFiles) {
  const TemporaryFolder folder;
  sineFile((folder / "a.edf"), 128, 4, "uV", 100, 10);
  const std::string whole = bytesOf((folder / "a.edf"));
  for (const std::string& bytes : {std::string(), std::string("0"), whole.substr(0, 300),
                                   whole.substr(0, whole.size() - 100), std::string(5000, 'x')}) {
    writeFile((folder / "b.edf"), bytes);
    EXPECT_NE(errorOf([&] { importEdf((folder / "b.edf"), (folder / "b.QVD"), {}); }), "") << bytes.size();
    EXPECT_EQ(entriesIn(folder.path()), 2);
  }
}

}  // namespace
}  // namespace korvinel::tool
