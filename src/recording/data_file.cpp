#include "recording/data_file.h"

#include <functional>
#include <memory>

#include "frame/held_flag.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/program_end.h"
#include "platform/skip_on_fault.h"
#include "platform/timing.h"
#include "recording/channel_record.h"
#include "recording/data_paths.h"
#include "recording/file_header.h"
#include "recording/record_line.h"
#include "recording/safe_keeping.h"

namespace korvinel {
/// The two files of an assembling, and whether every write to the data file has succeeded so far. A record after a gap
/// could not be read again, so after a failed write nothing more is written.
struct DataFileAssembly {
  MainState& state;
  std::unique_ptr<platform::OutputFile> data;
  std::unique_ptr<platform::InputFile> temporary;
  bool letsEventsIn = true;
  bool whole = true;
  bool asRecorded = true;  ///< the temporary file holds exactly what was recorded
  bool programEnds = false;
  std::size_t next = 0;  ///< byte of `temporaryContent` to be copied next
};

namespace {

void attempt(DataFileAssembly& assembly, const std::function<void()>& step) {
  if (!attemptWrite(assembly.state, step)) assembly.whole = false;
}

void write(DataFileAssembly& assembly, std::string_view bytes) {
  if (assembly.whole) attempt(assembly, [&] { assembly.data->write(bytes); });
}

void addPlaceholderNote(MainState& state) {
  if (state.noteCount != 0) return;
  state.noteCount = 1;
  state.noteTimes[1] = 1;
  state.noteTexts[1] = "Nota: ";
}

void writeHeaderAndNotes(DataFileAssembly& assembly) {
  MainState& state = assembly.state;
  write(assembly, headerLine(state.shared.subjectName, state.recordingDate, state.noteCount));
  for (int note = 1; note <= state.noteCount; ++note)
    write(assembly, noteLine(state.noteTimes[note], state.noteTexts[note]));
}

/// Reads as many bytes from the temporary file as `recorded` has; returns whether they are the same. A file that cannot
/// be read further counts as empty from there.
bool temporaryHolds(DataFileAssembly& assembly, std::string_view recorded) {
  if (!assembly.temporary) return false;
  bool same = true;
  const bool read = platform::skipOnFault([&] {
    for (const char byte : recorded)
      if (assembly.temporary->take() != static_cast<unsigned char>(byte)) same = false;
  });
  if (!read) assembly.temporary.reset();
  return read && same;
}

void openTemporary(DataFileAssembly& assembly) {
  platform::skipOnFault([&] { assembly.temporary = assembly.state.host.files.openForReading(temporaryPath); });
  assembly.next = recordedHeaderBytes(assembly.state);
  assembly.asRecorded =
      temporaryHolds(assembly, std::string_view(assembly.state.temporaryContent).substr(0, assembly.next));
}

/// The recording is completed even if the program ends meanwhile.
void letEventsIn(DataFileAssembly& assembly) {
  if (!assembly.letsEventsIn || assembly.programEnds) return;
  try {
    assembly.state.host.events.poll();
  } catch (const platform::ProgramEnd&) {
    assembly.programEnds = true;
  }
}

bool moreToCopy(const DataFileAssembly& assembly) { return assembly.next < assembly.state.temporaryContent.size(); }

/// Writes what was recorded; the temporary file, which others may have changed, is only compared with it.
void copyBlock(DataFileAssembly& assembly) {
  bool same = true;
  for (int channel = 1; channel <= 4 && moreToCopy(assembly); ++channel) {
    const auto record = std::string_view(assembly.state.temporaryContent).substr(assembly.next, channelRecordBytes);
    same = temporaryHolds(assembly, record) && same;
    write(assembly, record);
    assembly.next += record.size();
  }
  if (same) return;
  assembly.asRecorded = false;
  ++assembly.state.blocksFromMemory;
}

void copyBlocks(DataFileAssembly& assembly) {
  while (moreToCopy(assembly) && assembly.whole) {
    letEventsIn(assembly);
    if (assembly.state.assembling == 1) copyBlock(assembly);
  }
}

void closeBoth(DataFileAssembly& assembly) {
  platform::skipOnFault([&] {
    if (assembly.temporary && assembly.whole && !assembly.temporary->atEnd()) assembly.asRecorded = false;
  });
  if (assembly.data) attempt(assembly, [&] { assembly.data->synchronise(); });
  assembly.data.reset();
  assembly.temporary.reset();
}

void disposeOfTemporary(DataFileAssembly& assembly) {
  MainState& state = assembly.state;
  state.dataFileWhole = assembly.whole ? 1 : 0;
  if (state.recordingFault) {
    state.setAsidePath = keepRecordedData(state);
    return;
  }
  if (!assembly.asRecorded) {
    state.recordingFaultUntold = 1;
    platform::skipOnFault([&] { setForeignFileAside(state); });
  }
  removeTemporaryFile(state.host.files);
}

/// Everything from the first block on; done once, by the assembling itself or by the program's end during it.
void finish(DataFileAssembly& assembly) {
  MainState& state = assembly.state;
  copyBlocks(assembly);
  if (state.assembling == 0) return;
  closeBoth(assembly);
  disposeOfTemporary(assembly);
  state.assembling = 0;
}

/// However the assembling is left, nothing of it can be reached any more.
struct AssemblingUnderWay {
  explicit AssemblingUnderWay(MainState& theState) : state(theState), flag(theState.assembling) {}
  ~AssemblingUnderWay() { state.assembly = nullptr; }

  MainState& state;
  HeldFlag flag;
};

void assemble(DataFileAssembly assembly) {
  MainState& state = assembly.state;
  const AssemblingUnderWay underWay(state);
  state.blocksFromMemory = 0;
  state.assembly = &assembly;
  const std::size_t recorded = state.temporaryContent.size() - recordedHeaderBytes(state);
  state.lastRecording = {true, static_cast<int>(recorded / blockBytes), state.noteCount};
  addPlaceholderNote(state);
  attemptWrite(state, [&] { completeTemporaryFile(state, true); });
  attempt(assembly, [&] { assembly.data = state.host.files.openForAppending(dataFolder + state.shared.dataFileName); });
  writeHeaderAndNotes(assembly);
  openTemporary(assembly);
  finish(assembly);
  if (assembly.programEnds) throw platform::ProgramEnd{};
}

}  // namespace

void MainState::assembleDataFile() { assemble({*this, {}, {}}); }

void assembleWithoutEvents(MainState& state) { assemble({state, {}, {}, false}); }

void finishAssembling(DataFileAssembly& assembly) {
  assembly.letsEventsIn = false;
  finish(assembly);
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
