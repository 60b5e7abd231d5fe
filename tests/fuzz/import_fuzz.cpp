#include <sys/mman.h>
#include <unistd.h>

#include "input.h"
#include "recording/channel_record.h"
#include "recording/file_header.h"
#include "recording_tool/edf_import.h"
#include "recording_tool/tool_error.h"

using namespace korvinel;

/// An EDF or BDF file with any content is refused with a message or becomes a readable recording.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const int file = memfd_create("edf", MFD_CLOEXEC);
  fuzz::require(file >= 0 && ::write(file, data, size) == static_cast<ssize_t>(size));
  tool::ImportOptions options;
  options.channels = {"1", "2", "3", "4"};
  try {
    const auto imported = tool::importedFrom("/proc/self/fd/" + std::to_string(file), "edf", options);
    TextSource source(imported.dataFile);
    (void)readHeader(source);
    std::size_t rest = 0;
    while (source.take() != ByteSource::end) ++rest;
    fuzz::require(rest > 0 && rest % static_cast<std::size_t>(blockBytes) == 0);
  } catch (const tool::ToolError&) {
  }
  ::close(file);
  return 0;
}
