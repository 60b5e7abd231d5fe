#include "recording/safe_keeping.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/dialogs.h"
#include "platform/operation_edge.h"
#include "platform/timing.h"
#include "recording/channel_record.h"
#include "recording/data_file.h"
#include "recording/data_paths.h"
#include "recording/side_file.h"

namespace korvinel {
namespace {

using platform::skipOnFault;

/// How far a file agrees with what it is to hold; the file then stands behind that.
int lengthInAgreement(platform::InputFile& file, const std::string& content) {
  std::size_t length = 0;
  while (length < content.size() && file.peek() == static_cast<unsigned char>(content[length])) {
    file.take();
    ++length;
  }
  return static_cast<int>(length);
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

/// A file in the temporary file's place that holds something else. The side file is not its own.
void setForeignFileAside(MainState& state) {
  const std::string path = stampedPath(state);
  state.host.files.rename(temporaryPath, path);
  state.foreignPaths += "\r" + path;
  state.recordingFaultUntold = 1;
}

/// The byte from which the temporary file is to be continued. Once a write has failed, nothing but the file itself
/// tells how far it went; one that holds something else is put out of the way.
int placeToContinue(MainState& state) {
  auto& files = state.host.files;
  if (!files.exists(temporaryPath)) return 0;
  if (state.recordingFault.empty()) return state.temporaryWritten;
  auto file = files.openForReading(temporaryPath);
  const int length = lengthInAgreement(*file, state.temporaryContent);
  if (file->atEnd()) return length;
  file.reset();
  setForeignFileAside(state);
  return 0;
}

int blocksNotWritten(const MainState& state) {
  const int bytes = static_cast<int>(state.temporaryContent.size()) - state.temporaryWritten;
  return (bytes + blockBytes - 1) / blockBytes;
}

}  // namespace

bool attemptWrite(MainState& state, const std::function<void()>& step) {
  return skipOnFault([&] {
    try {
      step();
    } catch (const std::exception& fault) {
      if (state.recordingFault.empty()) state.recordingFault = fault.what();
      throw;
    }
  });
}

void completeTemporaryFile(MainState& state, bool synchronised) {
  state.temporaryWritten = placeToContinue(state);
  try {
    const auto file = state.host.files.openForAppending(temporaryPath);
    file->write(std::string_view(state.temporaryContent).substr(static_cast<std::size_t>(state.temporaryWritten)));
    state.temporaryWritten = static_cast<int>(state.temporaryContent.size());
    if (synchronised) file->synchronise();
  } catch (const RuntimeError& fault) {
    if (state.recordingFault.empty()) state.recordingFault = fault.what();
    skipOnFault([&] { state.temporaryWritten = placeToContinue(state); });
    throw;
  }
}

bool leftOverTemporaryFile(platform::Files& files) {
  if (!files.exists(temporaryPath)) return false;
  const auto file = files.openForReading(temporaryPath);
  skipOnFault([&] {
    for (int field = 1; field <= 3; ++field) (void)readField(*file);
  });
  return !file->atEnd();
}

std::string setTemporaryFileAside(MainState& state) {
  auto& files = state.host.files;
  std::string path = stampedPath(state);
  // The side file first: left behind alone, it would be taken for that of the next recording.
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

void setLonelySideFileAside(MainState& state) {
  auto& files = state.host.files;
  if (!files.exists(temporaryPath) && files.exists(sideFilePath))
    files.rename(sideFilePath, sidePathOf(stampedPath(state)));
}

void removeTemporaryFile(platform::Files& files) {
  skipOnFault([&] { files.remove(sideFilePath); });
  skipOnFault([&] { files.remove(temporaryPath); });
}

std::string keepRecordedData(MainState& state) {
  auto& files = state.host.files;
  std::string place;
  if (skipOnFault([&] { place = setTemporaryFileAside(state); })) return place;
  if (files.exists(temporaryPath)) return temporaryPath;
  place = stampedPath(state);
  const bool written = skipOnFault([&] { files.create(place)->write(state.temporaryContent); });
  if (written) state.temporaryWritten = static_cast<int>(state.temporaryContent.size());
  return written ? place : "";
}

void bringRecordingHome(MainState& state) {
  if (state.recordingActive != 1 || state.assembling == 1) return;
  assembleWithoutEvents(state);
  state.recordingActive = state.recordingArmed = 0;
}

void tellRecordingFault(MainState& state) {
  if (state.recordingFault.empty()) return;
  std::string text = "Errore di scrittura durante la registrazione!\r" + state.recordingFault;
  if (state.setAsidePath.empty())
    text += "\rI dati non sono stati messi al sicuro.\rQuanto e' stato scritto si trova nel file\r" +
            std::string(temporaryPath);
  else
    text += "\rI dati registrati sono conservati nel file\r" + state.setAsidePath;
  if (const int lost = blocksNotWritten(state); lost > 0 && !state.setAsidePath.empty())
    text += "\rNe mancano gli ultimi " + std::to_string(lost * 3) + " secondi.";
  state.host.dialogs.notice(text);
}

}  // namespace korvinel
