#include "recording/data_file.h"

#include "frame/main_state.h"
#include "platform/operation_edge.h"
#include "platform/timing.h"
#include "recording/channel_record.h"
#include "recording/data_paths.h"
#include "recording/file_header.h"
#include "recording/record_line.h"
#include "recording/safe_keeping.h"

namespace korvinel {
namespace {

/// The two files of an assembling, and whether the data file has taken all that was written to it so far. A record
/// behind a gap could not be read again, so after a write that failed nothing more is written.
struct Assembly {
  MainState& state;
  std::unique_ptr<platform::OutputFile> data;
  std::unique_ptr<platform::InputFile> temporary;
  bool whole = true;
  bool letsEventsIn = true;
  bool programEnds = false;
  std::size_t copiedBytes = 0;
};

void attempt(Assembly& assembly, const std::function<void()>& step) {
  if (!attemptWrite(assembly.state, step)) assembly.whole = false;
}

void write(Assembly& assembly, const std::string& bytes) {
  if (assembly.whole) attempt(assembly, [&] { assembly.data->write(bytes); });
}

void addPlaceholderNote(MainState& state) {
  if (state.noteCount != 0) return;
  state.noteCount = 1;
  state.noteTimes[1] = 1;
  state.noteTexts[1] = "Nota: ";
}

void writeHeaderAndNotes(Assembly& assembly) {
  MainState& state = assembly.state;
  write(assembly, headerLine(state.shared.subjectName, state.recordingDate, state.noteCount));
  for (int note = 1; note <= state.noteCount; ++note)
    write(assembly, noteLine(state.noteTimes[note], state.noteTexts[note]));
}

void openTemporary(Assembly& assembly) {
  attempt(assembly, [&] {
    assembly.temporary = assembly.state.host.files.openForReading(temporaryPath);
    for (int field = 1; field <= 3; ++field) (void)readField(*assembly.temporary);
  });
}

/// The recording is brought home even if the program is ended meanwhile.
void letEventsIn(Assembly& assembly) {
  if (!assembly.letsEventsIn || assembly.programEnds) return;
  try {
    assembly.state.host.events.poll();
  } catch (const platform::ProgramEnd&) {
    assembly.programEnds = true;
  }
}

void copyChannelRecord(Assembly& assembly) {
  std::string samples;
  for (int byte = 1; byte <= channelRecordBytes && !assembly.temporary->atEnd(); ++byte) {
    const auto taken = static_cast<char>(static_cast<unsigned char>(assembly.temporary->take()));
    if (byte <= samplesPerRecord) samples += taken;
    ++assembly.copiedBytes;
  }
  write(assembly, samples + "-\r\n");
}

/// Returns whether there is more to copy.
bool copyBlock(Assembly& assembly) {
  for (int channel = 1; channel <= 4 && !assembly.temporary->atEnd(); ++channel) copyChannelRecord(assembly);
  return !assembly.temporary->atEnd();
}

void copyBlocks(Assembly& assembly) {
  bool more = false;
  attempt(assembly, [&] { more = assembly.temporary && !assembly.temporary->atEnd(); });
  while (more && assembly.whole) {
    letEventsIn(assembly);
    attempt(assembly, [&] { more = copyBlock(assembly); });
  }
}

void checkThatAllWasCopied(Assembly& assembly) {
  const std::string& content = assembly.state.temporaryContent;
  const std::size_t headerBytes = content.find('\n') + 1;
  attempt(assembly, [&] {
    if (headerBytes + assembly.copiedBytes < content.size())
      throw RuntimeError(Fault::input, "Il file temporaneo e' incompleto");
  });
}

void closeBoth(Assembly& assembly) {
  if (assembly.data) attempt(assembly, [&] { assembly.data->synchronise(); });
  assembly.data.reset();
  assembly.temporary.reset();
}

void disposeOfTemporary(MainState& state) {
  if (state.recordingFault.empty())
    removeTemporaryFile(state.host.files);
  else
    state.setAsidePath = keepRecordedData(state);
}

void assemble(Assembly assembly) {
  MainState& state = assembly.state;
  state.assembling = 1;
  addPlaceholderNote(state);
  attemptWrite(state, [&] { completeTemporaryFile(state, true); });
  attempt(assembly, [&] { assembly.data = state.host.files.openForAppending(dataFolder + state.shared.dataFileName); });
  writeHeaderAndNotes(assembly);
  openTemporary(assembly);
  copyBlocks(assembly);
  checkThatAllWasCopied(assembly);
  closeBoth(assembly);
  disposeOfTemporary(state);
  state.assembling = 0;
  if (assembly.programEnds) throw platform::ProgramEnd{};
}

}  // namespace

void MainState::assembleDataFile() { assemble({*this, {}, {}}); }

void assembleWithoutEvents(MainState& state) {
  Assembly assembly{state, {}, {}};
  assembly.letsEventsIn = false;
  assemble(std::move(assembly));
}

void MainState::readFileHeader() {
  FileHeader header = readHeader(*readHandle);
  shared.subjectName = header.subject;
  headerText1 = fileDateField = header.dateField;
  fileVersionTag = header.versionTag;
  recordingDate = header.date;
  noteCount = header.noteCount;
  noteTimes = header.noteTimes;
  noteTexts = header.noteTexts;
  if (header.notesInFile > mostNotes) window.statusLabel.setText("Lette solo le prime 60 note!");
}

void MainState::readFileBlock() {
  if (fileVersionTag == "V3") readByteBlock(*readHandle, shared.channelCount, sampleBlock);
  if (fileVersionTag == "V4") readNumberBlock(*readHandle, shared.channelCount, sampleBlock);
}

}  // namespace korvinel
