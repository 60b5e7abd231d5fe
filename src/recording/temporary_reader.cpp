#include "recording/temporary_reader.h"

#include <algorithm>
#include <string_view>

#include "recording/channel_record.h"
#include "recording/record_line.h"
#include "values/code_page.h"
#include "values/field_reader.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

constexpr std::size_t longestLine = 3 * static_cast<std::size_t>(longestField);

bool isDate(const std::string& text) {
  constexpr std::string_view form = "dd/mm/yyyy";
  const auto fits = [](char wanted, char found) { return wanted == '/' ? found == '/' : found >= '0' && found <= '9'; };
  return std::equal(form.begin(), form.end(), text.begin(), text.end(), fits);
}

}  // namespace

TemporaryReader::TemporaryReader(platform::InputFile& file) : file_(file) { readHeader(takeLine()); }

std::string TemporaryReader::takeLine() {
  std::string line;
  while (!file_.atEnd() && line.size() < longestLine && !line.ends_with('\n'))
    line += static_cast<char>(static_cast<unsigned char>(file_.take()));
  return line;
}

/// Strict: a finished recording also begins with three texts, and its blocks would be read at the wrong bytes.
void TemporaryReader::readHeader(const std::string& line) {
  TextSource source(line);
  try {
    subject_ = utf8FromCodePage(readField(source));
    date_ = utf8FromCodePage(readField(source));
  } catch (const RuntimeError&) {
    return;
  }
  if (date_.ends_with(" V3") || date_.ends_with(" V4")) {
    kind_ = TemporaryKind::finished;
  } else if (isDate(date_) && line == temporaryHeaderLine(subject_, date_)) {
    kind_ = TemporaryKind::temporary;
  }
}

std::string TemporaryReader::nextBlock() {
  std::string block;
  block.reserve(blockBytes);
  while (block.size() < blockBytes && !file_.atEnd())
    block += static_cast<char>(static_cast<unsigned char>(file_.take()));
  return block;
}

bool isSound(const std::string& block) {
  constexpr std::string_view neverWritten("\0\x09\x0A\x1A", 4);
  for (std::size_t record = 0; record < block.size(); record += channelRecordBytes) {
    const std::string_view bytes = std::string_view(block).substr(record, channelRecordBytes);
    if (!bytes.ends_with("-\r\n")) return false;
    if (bytes.substr(0, samplesPerRecord).find_first_of(neverWritten) != std::string_view::npos) return false;
  }
  return true;
}

}  // namespace korvinel
