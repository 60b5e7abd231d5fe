#include "recording/recovery.h"

#include "recording/channel_record.h"
#include "recording/data_paths.h"
#include "recording/host_files.h"
#include "recording/safe_output.h"
#include "recording/tool_error.h"
#include "recording/workbench.h"
#include "values/code_page.h"

namespace korvinel::tool {
namespace {

constexpr auto dataFileName = "recovered.QVD";

struct TemporaryHeader {
  std::string subject, date;
  std::size_t bytes = 0;
};

TemporaryHeader readTemporaryHeader(const std::string& path, const std::string& content) {
  TextSource source(content);
  TemporaryHeader header;
  try {
    header.subject = utf8FromCodePage(readField(source));
    header.date = utf8FromCodePage(readField(source));
    (void)readField(source);
  } catch (const RuntimeError&) {
    throw ToolError(path, "is no temporary file: its header line cannot be read, at byte 0");
  }
  while (source.take() != ByteSource::end) ++header.bytes;
  header.bytes = content.size() - header.bytes;
  return header;
}

}  // namespace

Recovered recoveredFrom(const std::string& path, const std::string& temporaryBytes) {
  const TemporaryHeader header = readTemporaryHeader(path, temporaryBytes);
  const std::size_t sampleBytes = temporaryBytes.size() - header.bytes;
  Recovered result;
  result.blocks = static_cast<int>(sampleBytes / blockBytes);
  result.bytesLeft = static_cast<int>(sampleBytes % blockBytes);
  if (result.blocks == 0) throw ToolError(path, "holds no whole block, at byte " + std::to_string(header.bytes));
  const auto bench = std::make_unique<Workbench>();
  auto& root = bench->files.root.content;
  root[temporaryPath] = temporaryBytes.substr(0, temporaryBytes.size() - static_cast<std::size_t>(result.bytesLeft));
  bench->shared.subjectName = header.subject;
  bench->state.recordingDate = header.date;
  bench->shared.dataFileName = dataFileName;
  bench->state.assembleDataFile();
  if (!bench->state.recordingFault.empty())
    throw ToolError(path, "cannot be recovered: " + bench->state.recordingFault);
  result.dataFile = root[std::string(dataFolder) + dataFileName];
  return result;
}

std::string recover(const std::string& temporaryFile, const std::string& output, bool force) {
  requireWritable(output, temporaryFile, force);
  const Recovered result = recoveredFrom(temporaryFile, readAll(temporaryFile));
  writeWhole(output, result.dataFile, force);
  std::string told = std::to_string(result.blocks) + (result.blocks == 1 ? " block" : " blocks") + " recovered";
  if (result.bytesLeft > 0)
    told += "; " + std::to_string(result.bytesLeft) + " bytes of a block that was not finished are left out";
  return told;
}

}  // namespace korvinel::tool
