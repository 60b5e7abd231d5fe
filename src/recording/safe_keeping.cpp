#include "recording/safe_keeping.h"

#include <array>
#include <cstdio>
#include <memory>

#include "frame/main_state.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/skip_on_fault.h"
#include "platform/timing.h"
#include "recording/data_paths.h"
#include "recording/recovery.h"
#include "recording/side_file.h"
#include "recording/temporary_reader.h"
#include "values/field_reader.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::skipOnFault;

/// How many bytes of a file agree with its intended content; the file is then positioned after them.
int lengthInAgreement(platform::InputFile& file, const std::string& content) {
  std::size_t length = 0;
  while (length < content.size() && file.peek() == static_cast<unsigned char>(content[length])) {
    file.take();
    ++length;
  }
  return static_cast<int>(length);
}

/// The file under the temporary file's name.
struct Found {
  int agreement = 0;     ///< bytes at its beginning that agree with the recording
  bool foreign = false;  ///< other content follows them
};

Found lookAtTemporaryFile(const MainState& state) {
  const auto file = state.host.files.openForReading(temporaryPath);
  const int agreement = lengthInAgreement(*file, state.temporaryContent);
  return {agreement, !file->atEnd()};
}

std::string stampedPath(MainState& state) {
  const platform::CalendarTime now = state.host.clock.localTime();
  std::array<char, 80> stamp{};
  std::snprintf(stamp.data(), stamp.size(), "Tempor1 %04d-%02d-%02d %02d.%02d.%02d", now.year, now.month, now.day,
                now.hour, now.minute, now.second);
  const std::string base = dataFolder + std::string(stamp.data());
  std::string path = base + ".XXX";
  const auto taken = [&] { return state.host.files.exists(path) || state.host.files.exists(sidePathOf(path)); };
  for (int copy = 2; taken(); ++copy) path = base + " (" + std::to_string(copy) + ").XXX";
  return path;
}

/// Renames the temporary file to `path`, and its side file to the name that goes with it.
std::string setAsideAs(MainState& state, const std::string& path) {
  auto& files = state.host.files;
  // The side file first: if left behind alone, it would be taken for the next recording's.
  const bool hasSideFile = files.exists(sideFilePath);
  if (hasSideFile) files.rename(sideFilePath, sidePathOf(path));
  try {
    files.rename(temporaryPath, path);
  } catch (const RuntimeError&) {
    if (hasSideFile) skipOnFault([&] { files.rename(sidePathOf(path), sideFilePath); });
    throw;
  }
  return path;
}

/// After a crash between the two steps above: where the temporary file is with its notes again. "" = there was none.
std::string pathBesideItsNotes(platform::Files& files) {
  std::string side;
  skipOnFault([&] {
    const auto file = files.openForReading(temporaryPath);
    const TemporaryReader reader(*file);
    if (reader.kind() == TemporaryKind::temporary) side = sideFileOf(files, temporaryPath, reader);
  });
  return side.empty() || side == sideFilePath ? "" : side.substr(0, side.rfind('.')) + ".XXX";
}

/// The byte from which the temporary file is to be continued; a file with other content is set aside.
int placeToContinue(MainState& state, bool isToBeLookedAt) {
  if (!state.host.files.exists(temporaryPath)) return 0;
  if (!isToBeLookedAt) return state.temporaryWritten;
  const Found found = lookAtTemporaryFile(state);
  if (!found.foreign) return found.agreement;
  setForeignFileAside(state);
  return 0;
}

void appendWhatIsMissing(MainState& state, bool synchronised) {
  const auto file = state.host.files.openForAppending(temporaryPath);
  file->write(std::string_view(state.temporaryContent).substr(static_cast<std::size_t>(state.temporaryWritten)));
  state.temporaryWritten = static_cast<int>(state.temporaryContent.size());
  if (synchronised) file->synchronise();
}

void noteFault(MainState& state, const std::exception& fault) {
  if (!state.recordingFault) state.recordingFault = std::make_shared<const Facts>(factsOf(fault));
  state.recordingFaultUntold = 1;
}

/// Compares every byte and repairs what others have changed. Afterwards `temporaryWritten` is correct in any case.
void verifyTemporaryFile(MainState& state) {
  state.temporaryWritten = 0;
  skipOnFault([&] {
    state.temporaryWritten = placeToContinue(state, true);
    completeTemporaryFile(state, true);
  });
}

}  // namespace

bool attemptWrite(MainState& state, const std::function<void()>& step) {
  return skipOnFault([&] {
    try {
      step();
    } catch (const std::exception& fault) {
      noteFault(state, fault);
      throw;
    }
  });
}

void completeTemporaryFile(MainState& state, bool synchronised) {
  // After a failed write, only the file itself shows how much was written.
  state.temporaryWritten = placeToContinue(state, state.recordingFault != nullptr);
  try {
    appendWhatIsMissing(state, synchronised);
  } catch (const RuntimeError& fault) {
    noteFault(state, fault);
    state.temporaryWritten = 0;
    skipOnFault([&] { state.temporaryWritten = placeToContinue(state, true); });
    throw;
  }
}

std::size_t recordedHeaderBytes(const MainState& state) { return state.temporaryContent.find('\n') + 1; }

bool leftOverTemporaryFile(platform::Files& files) {
  if (!files.exists(temporaryPath)) return false;
  const auto file = files.openForReading(temporaryPath);
  skipOnFault([&] {
    for (int field = 1; field <= 3; ++field) (void)readField(*file);
  });
  return !file->atEnd();
}

std::string setTemporaryFileAside(MainState& state) { return setAsideAs(state, stampedPath(state)); }

std::string setLeftOverFileAside(MainState& state) {
  const std::string path = pathBesideItsNotes(state.host.files);
  return setAsideAs(state, path.empty() ? stampedPath(state) : path);
}

void setLonelySideFileAside(MainState& state) {
  auto& files = state.host.files;
  if (!files.exists(temporaryPath) && files.exists(sideFilePath))
    files.rename(sideFilePath, sidePathOf(stampedPath(state)));
}

void setForeignFileAside(MainState& state) {
  if (!state.host.files.exists(temporaryPath)) return;
  Found found{0, true};
  skipOnFault([&] { found = lookAtTemporaryFile(state); });
  if (!found.foreign) return;
  const std::string path = stampedPath(state);
  state.host.files.rename(temporaryPath, path);
  state.foreignPaths += "\r" + path;
  state.recordingFaultUntold = 1;
}

void removeTemporaryFile(platform::Files& files) {
  skipOnFault([&] { files.remove(sideFilePath); });
  skipOnFault([&] { files.remove(temporaryPath); });
}

std::string keepRecordedData(MainState& state) {
  verifyTemporaryFile(state);
  std::string place = temporaryPath;
  skipOnFault([&] { place = setTemporaryFileAside(state); });
  completeSideFile(state, sidePathOf(place));
  return state.host.files.exists(place) ? place : "";
}

bool recordedDataAreKept(const MainState& state) {
  return !state.setAsidePath.empty() && state.temporaryWritten == static_cast<int>(state.temporaryContent.size()) &&
         sideFileIsComplete(state);
}

void addNotice(MainState& state, const std::string& line) {
  if (!state.recordingNotice.empty()) state.recordingNotice += "\r";
  state.recordingNotice += line;
}

}  // namespace korvinel
