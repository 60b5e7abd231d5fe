#include "input.h"
#include "recording/side_file.h"

using namespace korvinel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TextSource source = fuzz::sourceOf(data, size);
  const SideFile side = readSideFile(source);  // never a fault
  fuzz::require(side.noteCount >= 0 && side.notesMissing >= 0);
  fuzz::require(side.noteCount + side.notesMissing <= mostNotes);
  return 0;
}
