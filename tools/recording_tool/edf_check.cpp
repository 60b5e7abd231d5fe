#include "recording_tool/edf_check.h"

#include <edflib.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "eeg/block.h"
#include "recording_tool/host_files.h"
#include "recording_tool/recording_reader.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"

namespace korvinel::tool {
namespace {

class Checking {
 public:
  Checking(const SafeOutput& output, const EdfPlan& plan) : output_(output), plan_(plan) {}

  void require(bool holds, const char* what) const {
    if (!holds)
      throw ToolError(output_.path(), std::string("was not written as it should: ") + what + " (is the disk full?)");
  }

  /// The file size implied by its header: the header, and all signals of all records, two bytes a sample.
  void checkSize() const {
    constexpr std::size_t fixedPart = 256;
    constexpr std::size_t bytesBeforeSampleCounts = 216;  // for each signal
    const std::size_t signals = 4 + static_cast<std::size_t>(plan_.annotationSignals());
    const std::string header = beginning(fixedPart * (signals + 1));
    require(header.size() == fixedPart * (signals + 1) && number(header, 252, 4) == signals, "its header is cut off");
    std::size_t samples = 0;
    for (std::size_t i = 0; i < signals; ++i)
      samples += number(header, fixedPart + signals * bytesBeforeSampleCounts + 8 * i, 8);
    std::error_code error;
    const auto size = std::filesystem::file_size(pathOf(output_.temporaryPath()), error);
    require(!error && size == header.size() + 2 * samples * static_cast<unsigned>(plan_.blocks), "its size is wrong");
  }

  void checkHeader(const edf_hdr_struct& header) const {
    require(header.filetype == EDFLIB_FILETYPE_EDFPLUS && header.edfsignals == 4, "its header is wrong");
    require(header.datarecords_in_file == plan_.blocks, "its number of records is wrong");
    require(EdfDate{header.startdate_year, header.startdate_month, header.startdate_day} == plan_.date,
            "its date is wrong");
    std::string person = plan_.person;
    std::replace(person.begin(), person.end(), '_', ' ');  // blanks are underscores in the file
    require(personOf(header) == person, "the person's name is wrong");
    for (int signal = 0; signal < 4; ++signal) {
      const edf_param_struct& parameters = header.signalparam[signal];
      require(parameters.dig_min == leastDigital && parameters.dig_max == greatestDigital &&
                  parameters.phys_min == leastDigital && parameters.phys_max == greatestDigital &&
                  parameters.smp_in_datarecord == samplesPerRecord,
              "the description of a signal is wrong");
    }
  }

  void checkSamples(const std::string& recording, const EdfFile& file) const {
    RecordingReader reader(recording);
    Block block;
    int limited = 0;
    while (reader.next(block))
      for (int channel = 1; channel <= 4; ++channel) {
        const auto expected = digitalSamples(block[channel], limited);
        const std::vector<int> written = file.readDigital(channel - 1, samplesPerRecord);
        require(std::equal(expected.begin(), expected.end(), written.begin(), written.end()), "a sample is wrong");
      }
  }

 private:
  [[nodiscard]] std::string beginning(std::size_t bytes) const {
    const auto file = openInput(output_.temporaryPath());
    std::string text;
    while (text.size() < bytes && !file->atEnd()) text += static_cast<char>(file->take());
    return text;
  }

  /// A number in a header field; 0 if there is none.
  static std::size_t number(const std::string& header, std::size_t offset, std::size_t length) {
    return static_cast<std::size_t>(std::strtoul(header.substr(offset, length).c_str(), nullptr, 10));
  }

  const SafeOutput& output_;
  const EdfPlan& plan_;
};

}  // namespace

std::array<short, samplesPerRecord> digitalSamples(const Bounded<float, 258>& samples, int& limited) {
  constexpr double middle = eeg::midLevel;
  std::array<short, samplesPerRecord> digital{};
  for (int s = 1; s <= samplesPerRecord; ++s) {
    const double microvolts = std::nearbyint(static_cast<double>(samples[s]) - middle);
    const double within =
        std::clamp(microvolts, static_cast<double>(leastDigital), static_cast<double>(greatestDigital));
    if (within != microvolts) ++limited;
    digital[static_cast<std::size_t>(s) - 1] = static_cast<short>(within);
  }
  return digital;
}

void checkEdf(const std::string& recording, const SafeOutput& output, const EdfPlan& plan) {
  const Checking checking(output, plan);
  checking.checkSize();
  const EdfFile file(output.temporaryPath(), output.path());
  checking.checkHeader(file.header());
  checking.require(file.annotations() == plan.annotations, "an annotation is wrong");
  checking.checkSamples(recording, file);
}

}  // namespace korvinel::tool
