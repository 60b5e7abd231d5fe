#include <edflib.h>

#include <cmath>

#include "recording_tool/ascii_form.h"
#include "recording_tool/channel_choice.h"
#include "recording_tool/edf_export.h"
#include "recording_tool/edf_file.h"
#include "recording_tool/edf_import.h"
#include "recording_tool/recording_reader.h"
#include "recordings.h"
#include "tool_files.h"
#include "values/code_page.h"

namespace korvinel::tool {
namespace {

std::string field(const std::string& header, std::size_t offset, std::size_t length) {
  return trimmed(header.substr(offset, length));
}

/// A recording with every kind of sample byte that a file can hold.
std::string variedRecording(int blocks, const recordings::Notes& notes = {{1, "Nota: "}}) {
  std::string bytes = recordings::header(notes);
  unsigned value = 1;
  for (int record = 0; record < 4 * blocks; ++record) {
    for (int s = 0; s < 256; ++s) {
      value = value * 1'103'515'245U + 12'345U;
      unsigned byte = 1 + (value >> 16U) % 255;
      if (byte == 9 || byte == 10 || byte == 26) byte = 128;
      bytes += static_cast<char>(static_cast<unsigned char>(byte));
    }
    bytes += "-\r\n";
  }
  return bytes;
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

TEST(EdfImport, GivesAnExportedRecordingBackByteForByte) {
  const TemporaryFolder folder;
  const std::string bytes =
      variedRecording(6, {{2, "prima"}, {4, "una nota molto lunga che non sta in una sola annotazione del file EDF"}});
  const std::string recording = writeFile((folder / "a.QVD"), bytes);
  exportEdf(recording, (folder / "a.edf"), {});
  importEdf((folder / "a.edf"), (folder / "b.QVD"), {});
  EXPECT_TRUE(bytesOf((folder / "b.QVD")) == bytes);
}

/// An EDF file of sines: F3 .. T6 have 4, 8, 12 and 20 Hz of 50 microvolts.
std::string sineFile(const std::string& path, int rate, int seconds, const char* unit, double fullScale,
                     double amplitude) {
  const int file = edfopen_file_writeonly(path.c_str(), EDFLIB_FILETYPE_EDFPLUS, 5);
  const char* labels[] = {"ECG", "EEG F3-Ref", "F4..", "p7", "T6"};
  for (int signal = 0; signal < 5; ++signal) {
    edf_set_samplefrequency(file, signal, rate);
    edf_set_physical_maximum(file, signal, fullScale);
    edf_set_physical_minimum(file, signal, -fullScale);
    edf_set_digital_maximum(file, signal, 32767);
    edf_set_digital_minimum(file, signal, -32768);
    edf_set_label(file, signal, labels[signal]);
    edf_set_physical_dimension(file, signal, unit);
  }
  const double hertz[] = {1, 4, 8, 12, 20};
  for (int second = 0; second < seconds; ++second)
    for (const double h : hertz) {
      std::vector<double> samples;
      for (int i = 0; i < rate; ++i)
        samples.push_back(amplitude * std::sin(2 * 3.14159265358979 * h * (second + i / double(rate))));
      edfwrite_physical_samples(file, samples.data());
    }
  edfclose_file(file);
  return path;
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
          if (time < 1 || time > 19) continue;  // a resampler rings where the signal begins and ends
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

TEST(ChannelChoice, NeedsFourNames) {
  for (const char* list : {"", "F3", "F3,F4,T5", "F3,F4,T5,T6,O1", "F3,,T5,T6"})
    EXPECT_NE(errorOf([&] { (void)parseChannels(list); }), "") << list;
  EXPECT_EQ(parseChannels("F3,F4,T5,T6"), (std::array<std::string, 4>{"F3", "F4", "T5", "T6"}));
}

TEST(AsciiForm, DropsAccentsAndSpellsLigaturesOut) {
  const std::pair<const char*, const char*> cases[] = {{"Niccolò", "Niccolo"},
                                                       {"Müller-Ångström", "Muller-Angstrom"},
                                                       {"Œuvre ß", "OEuvre ss"},
                                                       {"a\tb", "a b"},
                                                       {"‘x’", "'x'"}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(asciiForm(text), expected);
}

}  // namespace
}  // namespace korvinel::tool
