#include "recording/safe_keeping.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/dialogs.h"
#include "platform/operation_edge.h"
#include "platform/timing.h"
#include "recording/channel_record.h"
#include "recording/data_paths.h"

namespace korvinel {
namespace {

using platform::skipOnFault;

/// How far the file on the disk agrees with what it is to hold.
int lengthInAgreement(platform::Files& files, const std::string& content) {
  if (!files.exists(temporaryPath)) return 0;
  const auto file = files.openForReading(temporaryPath);
  std::size_t length = 0;
  while (length < content.size() && file->peek() == static_cast<unsigned char>(content[length])) {
    file->take();
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
  for (int copy = 2; state.host.files.exists(path); ++copy) path = base + " (" + std::to_string(copy) + ").XXX";
  return path;
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

void completeTemporaryFile(MainState& state) {
  auto& files = state.host.files;
  if (!files.exists(temporaryPath)) state.temporaryWritten = 0;
  const auto written = static_cast<std::size_t>(state.temporaryWritten);
  if (written == state.temporaryContent.size()) return;
  try {
    files.openForAppending(temporaryPath)->write(std::string_view(state.temporaryContent).substr(written));
    state.temporaryWritten = static_cast<int>(state.temporaryContent.size());
  } catch (const std::exception&) {
    skipOnFault([&] { state.temporaryWritten = lengthInAgreement(files, state.temporaryContent); });
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
  std::string path = stampedPath(state);
  state.host.files.rename(temporaryPath, path);
  return path;
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

void tellRecordingFault(MainState& state) {
  if (state.recordingFault.empty()) return;
  std::string text = "Errore di scrittura durante la registrazione!\r" + state.recordingFault;
  if (state.setAsidePath.empty())
    text += "\rNon e' stato possibile conservare i dati.";
  else
    text += "\rI dati registrati sono conservati nel file\r" + state.setAsidePath;
  if (const int lost = blocksNotWritten(state); lost > 0 && !state.setAsidePath.empty())
    text += "\rNe mancano gli ultimi " + std::to_string(lost * 3) + " secondi.";
  state.host.dialogs.notice(text);
}

}  // namespace korvinel
