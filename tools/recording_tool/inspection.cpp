#include "recording_tool/inspection.h"

#include <regex>
#include <utility>

#include "eeg/montage.h"
#include "recording/channel_record.h"
#include "values/field_reader.h"
#include "values/number_text.h"
#include "values/runtime_error.h"

namespace korvinel::tool {
namespace {

constexpr std::size_t mostDefects = 1000;

std::string numbered(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

void add(Inspection& found, std::int64_t offset, const std::string& what) {
  if (found.defects.size() < mostDefects) found.defects.push_back({offset, what});
}

/// The header is read by the program's own reader; if that fails, the byte shows how far it got.
bool readHeaderOf(platform::InputFile& file, Inspection& found) {
  if (file.atEnd()) {
    add(found, 0, "the file is empty");
    return false;
  }
  try {
    found.header = readHeader(file);
    return true;
  } catch (const RuntimeError&) {
    add(found, file.position(), "the header and its notes cannot be read up to here");
    return false;
  }
}

void judgeHeader(Inspection& found) {
  const FileHeader& header = found.header;
  static const std::regex dateForm(R"(\d\d/\d\d/\d{4} V[34])");
  if (!std::regex_match(header.dateField, dateForm))
    add(found, 0, "the date field '" + header.dateField + "' is not of the form dd/mm/yyyy V3");
  if (header.notesInFile == 0) add(found, 0, "the header announces no note, not even the placeholder");
  if (header.notesInFile > mostNotes)
    add(found, 0, numbered(header.notesInFile, "note") + " are announced, only the first 60 are kept");
}

void judgeNotes(Inspection& found, std::int64_t samplesBegin) {
  for (int note = 1; note <= found.header.noteCount; ++note) {
    const float block = found.header.noteTimes[note];
    // A recording has one more block than its notes count if it began in the middle of an examination.
    if (block < 1 || block > static_cast<float>(found.blocks + 1))
      add(found, samplesBegin,
          "note " + std::to_string(note) + " stands at block " + shortestDecimal(block) + " of " +
              std::to_string(found.blocks));
  }
}

/// Reads the next bytes of the file, at most `count`.
std::string takeBytes(platform::InputFile& file, int count) {
  std::string bytes;
  while (static_cast<int>(bytes.size()) < count && !file.atEnd())
    bytes += static_cast<char>(static_cast<unsigned char>(file.take()));
  return bytes;
}

bool isShunned(char byte) { return byte == 0 || byte == 9 || byte == 10 || byte == 26; }

void judgeRecord(Inspection& found, std::int64_t offset, std::string_view record, int channel) {
  const std::string where = " in channel " + std::to_string(channel) + " of block " + std::to_string(found.blocks);
  const std::string_view samples = record.substr(0, samplesPerRecord);
  for (std::size_t s = 0; s < samples.size(); ++s)
    if (isShunned(samples[s]))
      return add(found, offset + static_cast<std::int64_t>(s),
                 "sample byte " + std::to_string(static_cast<unsigned char>(samples[s])) +
                     ", which no recording holds," + where);
  if (record.size() == channelRecordBytes && record.substr(samplesPerRecord) != "-\r\n")
    add(found, offset + samplesPerRecord, "no '-' and line end behind the samples" + where);
}

constexpr auto nowhere = std::string::npos;

/// Where a header line begins in the bytes.
std::size_t headerLineIn(const std::string& bytes) {
  static const std::regex line("\"[^\"\r\n]*\",\"\\d\\d/\\d\\d/\\d{4} V[34]\",\"4canali\",");
  std::smatch match;
  if (bytes.find("\",\"4canali\",") == nowhere || !std::regex_search(bytes, match, line)) return nowhere;
  return static_cast<std::size_t>(match.position());
}

/// A whole block, or the existing part of one.
void judgeBlock(Inspection& found, std::int64_t offset, std::string_view block) {
  ++found.blocks;
  for (int channel = 1; channel <= 4; ++channel) {
    const std::size_t start = static_cast<std::size_t>(channel - 1) * channelRecordBytes;
    if (start >= block.size()) break;
    judgeRecord(found, offset + static_cast<std::int64_t>(start), block.substr(start, channelRecordBytes), channel);
  }
  if (block.size() < blockBytes)
    add(found, offset,
        "block " + std::to_string(found.blocks) + " is cut off: it has " + std::to_string(block.size()) + " of " +
            std::to_string(blockBytes) + " bytes");
}

/// Saving under an existing name appends a whole second recording to the first, which may itself be cut off: its header
/// can begin anywhere in a block and continue in the next.
void inspectByteBlocks(platform::InputFile& file, Inspection& found) {
  std::int64_t offset = file.position();
  std::string block = takeBytes(file, blockBytes);
  while (!block.empty()) {
    std::string next = takeBytes(file, blockBytes);
    const std::size_t header = headerLineIn(block + next);
    const bool secondBegins = header < block.size();
    if (secondBegins) block.resize(header);
    if (!block.empty()) judgeBlock(found, offset, block);
    offset += static_cast<std::int64_t>(block.size());
    if (secondBegins)
      return add(found, offset, "the file holds two recordings: a second recording begins here, it is not read");
    block = std::move(next);
  }
}

void inspectNumberBlocks(platform::InputFile& file, Inspection& found) {
  constexpr int samplesPerBlock = eeg::channelCount * samplesPerRecord;
  while (!file.atEnd()) {
    const std::int64_t begin = file.position();
    ++found.blocks;
    int sample = 0;
    for (; sample < samplesPerBlock && !file.atEnd(); ++sample) {
      const std::int64_t offset = file.position();
      if (!takeSampleField(file)) add(found, offset, "no number in block " + std::to_string(found.blocks));
    }
    if (sample < samplesPerBlock)
      add(found, begin,
          "block " + std::to_string(found.blocks) + " is cut off: it has " + std::to_string(sample) + " of " +
              std::to_string(samplesPerBlock) + " numbers");
  }
}

void inspectBlocks(platform::InputFile& file, Inspection& found) {
  const std::int64_t samplesBegin = file.position();
  if (found.header.versionTag == "V3")
    inspectByteBlocks(file, found);
  else if (found.header.versionTag == "V4")
    inspectNumberBlocks(file, found);
  else
    add(found, 0, "the version '" + found.header.versionTag + "' is not known: no sample can be read");
  if (found.blocks == 0) add(found, samplesBegin, "there are no samples");
  judgeNotes(found, samplesBegin);
}

}  // namespace

bool takeSampleField(ByteSource& source) {
  try {
    (void)readFloat(source);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

Inspection inspect(platform::InputFile& file) {
  Inspection found;
  if (!readHeaderOf(file, found)) return found;
  judgeHeader(found);
  inspectBlocks(file, found);
  return found;
}

}  // namespace korvinel::tool
