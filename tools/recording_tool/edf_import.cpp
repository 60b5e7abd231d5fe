#include "recording_tool/edf_import.h"

#include <edflib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>

#include "eeg/block.h"
#include "recording/channel_record.h"
#include "recording/data_paths.h"
#include "recording_tool/channel_choice.h"
#include "recording_tool/channel_stream.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/messages.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/workbench.h"

namespace korvinel::tool {
namespace {

constexpr auto dataFileName = "imported.QVD";
constexpr int mostBlocks = 100'000;  // more than two days
constexpr int blocksRead = eeg::mostBlocks;
constexpr float middle = eeg::midLevel;

std::string dateOf(const edf_hdr_struct& header) {
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%02d/%02d/%04d", header.startdate_day, header.startdate_month,
                header.startdate_year);
  return text.data();
}

/// As a 32-bit float, limited to its range. Values beyond a recording's range are limited anyway.
float microvolts(double sample) { return static_cast<float>(std::clamp(sample, -1e6, 1e6)); }

/// Makes a recording with the program's own recording and assembling.
class Importing {
 public:
  Importing(const EdfFile& file, const ImportOptions& options)
      : file_(file), bench_(std::make_unique<Workbench>()), state_(bench_->state) {
    bench_->shared.subjectName = options.subject.value_or(personOf(file.header()));
    bench_->shared.dataFileName = dataFileName;
    state_.recordingDate = dateOf(file.header());
    for (const int signal : chooseSignals(file.shownAs(), file.labels(), options.channels))
      streams_.emplace_back(file, signal);
    takeNotes();
  }

  Imported run() {
    state_.createTempFile();
    state_.recordingActive = 1;
    while (takeBlock()) state_.appendBlockToTemp();
    if (blocks_ == 0) throw ToolError(file_.shownAs(), "holds no samples");
    state_.assembleDataFile();
    if (state_.recordingFault)
      throw ToolError(file_.shownAs(), "cannot be imported: " + reasonOf(*state_.recordingFault));
    tellChanges();
    return {bench_->files.root.content[std::string(dataFolder) + dataFileName], std::move(told_)};
  }

 private:
  void takeNotes() {
    const std::vector<Note> notes = notesFrom(file_.annotations());
    for (const Note& note : notes) {
      if (state_.noteCount >= mostNotes) break;
      state_.noteCount += 1;
      state_.noteTimes[state_.noteCount] = static_cast<float>(note.block);
      state_.noteTexts[state_.noteCount] = note.text;
    }
    if (notes.size() > mostNotes)
      told_.push_back("has " + std::to_string(notes.size()) + " annotations, only the first 60 are kept as notes");
  }

  /// Reads the next block into the program's buffer; an incomplete last one is filled up with 0 microvolts.
  bool takeBlock() {
    std::size_t longest = 0;
    for (int channel = 1; channel <= 4; ++channel) {
      const std::vector<double> samples = streams_[static_cast<std::size_t>(channel) - 1].take(samplesPerRecord);
      longest = std::max(longest, samples.size());
      for (int s = 1; s <= samplesPerRecord; ++s) {
        const auto index = static_cast<std::size_t>(s) - 1;
        state_.sampleBlock[channel][s] = index < samples.size() ? microvolts(samples[index]) + middle : middle;
        countChange(state_.sampleBlock[channel][s]);
      }
    }
    if (longest == 0) return false;
    filledUp_ += samplesPerRecord - static_cast<int>(longest);
    if (++blocks_ > mostBlocks) throw ToolError(file_.shownAs(), "is too long: it has more than 100000 blocks of 2 s");
    return true;
  }

  void countChange(float sample) {
    const double change = std::abs(static_cast<double>(storedSample(sample)) - static_cast<double>(sample));
    if (!(sample >= 0.5F && sample < 255.5F))
      ++limited_;
    else if (change > 0.5)
      ++moved_;
  }

  void tellChanges() {
    if (limited_ > 0) told_.push_back(std::to_string(limited_) + " samples beyond -127..127 microvolts are limited");
    if (moved_ > 0)
      told_.push_back(std::to_string(moved_) +
                      " samples are moved by 1 microvolt, off values that a recording cannot hold");
    if (filledUp_ > 0)
      told_.push_back("the last block is filled up with " + std::to_string(filledUp_) + " samples of 0 microvolts");
    if (blocks_ > blocksRead)
      told_.push_back("has " + std::to_string(blocks_) + " blocks of 2 s, Korvinel reads the first 199");
  }

  const EdfFile& file_;
  std::unique_ptr<Workbench> bench_;
  MainState& state_;
  std::vector<ChannelStream> streams_;
  std::vector<std::string> told_;
  int blocks_ = 0, limited_ = 0, moved_ = 0, filledUp_ = 0;
};

}  // namespace

Imported importedFrom(const std::string& input, const std::string& shownAs, const ImportOptions& options) {
  const EdfFile file(input, shownAs);
  return Importing(file, options).run();
}

void importEdf(const std::string& input, const std::string& output, const ImportOptions& options) {
  requireWritable(output, input, options.force);
  (void)openInput(input);
  const Imported imported = importedFrom(input, input, options);
  writeWhole(output, imported.dataFile, options.force);
  for (const std::string& note : imported.notes) tell(input, note);
}

}  // namespace korvinel::tool
