#include "recording_tool/temporary_reader.h"

#include <algorithm>
#include <string_view>

#include "recording/channel_record.h"
#include "recording/record_line.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/tool_error.h"
#include "values/code_page.h"
#include "values/field_reader.h"
#include "values/runtime_error.h"

namespace korvinel::tool {
namespace {

constexpr std::size_t longestLine = 3 * static_cast<std::size_t>(longestField);

bool isDate(const std::string& text) {
  constexpr std::string_view form = "dd/mm/yyyy";
  const auto fits = [](char wanted, char found) { return wanted == '/' ? found == '/' : found >= '0' && found <= '9'; };
  return std::equal(form.begin(), form.end(), text.begin(), text.end(), fits);
}

}  // namespace

template <typename Step>
void TemporaryReader::reading(Step&& step) {
  try {
    step();
  } catch (const RuntimeError& fault) {
    throw ToolError(path_, "cannot be read: " + reasonOf(fault) + ", at byte " + std::to_string(file_->position()));
  }
}

TemporaryReader::TemporaryReader(const std::string& path) : path_(path), file_(openInput(path)) { readHeader(); }

std::string TemporaryReader::takeLine() {
  std::string line;
  reading([&] {
    while (!file_->atEnd() && line.size() < longestLine && !line.ends_with('\n'))
      line += static_cast<char>(static_cast<unsigned char>(file_->take()));
  });
  return line;
}

/// Strict: a finished recording also begins with three texts, and its blocks would be read at the wrong bytes.
void TemporaryReader::readHeader() {
  const std::string line = takeLine();
  TextSource source(line);
  try {
    subject_ = utf8FromCodePage(readField(source));
    date_ = utf8FromCodePage(readField(source));
  } catch (const RuntimeError&) {
    date_.clear();
  }
  if (date_.ends_with(" V3") || date_.ends_with(" V4"))
    throw ToolError(path_, "is no temporary file but a finished recording, at byte 0");
  if (!isDate(date_) || line != temporaryHeaderLine(subject_, date_))
    throw ToolError(path_, "is no temporary file: its header line is another, at byte 0");
}

std::string TemporaryReader::nextBlock() {
  std::string block;
  block.reserve(blockBytes);
  reading([&] {
    while (block.size() < blockBytes && !file_->atEnd())
      block += static_cast<char>(static_cast<unsigned char>(file_->take()));
  });
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

}  // namespace korvinel::tool
