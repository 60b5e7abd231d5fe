#include "input.h"
#include "recording/file_header.h"

using namespace korvinel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TextSource source = fuzz::sourceOf(data, size);
  fuzz::readOrFault([&] {
    const FileHeader header = readHeader(source);
    fuzz::require(header.noteCount >= 0 && header.noteCount <= mostNotes);
    fuzz::require(header.noteCount <= header.notesInFile);
  });
  return 0;
}
