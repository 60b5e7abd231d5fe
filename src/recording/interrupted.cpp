#include "recording/interrupted.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/skip_on_fault.h"
#include "recording/data_paths.h"
#include "recording/interrupted_file.h"
#include "recording/recording_names.h"
#include "values/code_page.h"

namespace korvinel {
namespace {

using platform::Files;
using platform::LockOutcome;
using platform::skipOnFault;

constexpr std::string_view dataEnding = ".QVD";
constexpr auto unfinishedPath = "C:\\QUARVEL5\\DATAFILE\\Recupero.TMP";

/// "Tempor1.XXX", then the stamped names of those set aside.
std::vector<std::string> temporaryFiles(Files& files) {
  std::vector<std::string> paths;
  for (const std::string& name : files.list(dataFolder, ".XXX"))
    if (upperCase(name).starts_with("TEMPOR1 ")) paths.push_back(dataFolder + name);
  std::sort(paths.rbegin(), paths.rend());
  if (files.exists(temporaryPath)) paths.insert(paths.begin(), temporaryPath);
  return paths;
}

/// Whether one of the data files "NAME.QVD", "NAME (2).QVD", ... is what a recovery would write: the examination was
/// already recovered, or interrupted after its data file was complete.
bool isInADataFile(Files& files, const std::string& temporaryFile, const std::string& dataFileName) {
  if (!dataFileName.ends_with(dataEnding)) return false;
  const std::string stem = upperCase(dataFileName.substr(0, dataFileName.size() - dataEnding.size()));
  for (const std::string& name : files.list(dataFolder, std::string(dataEnding))) {
    if (!upperCase(name).starts_with(stem)) continue;
    const std::string rest = upperCase(name).substr(stem.size());
    if (rest != dataEnding && !rest.starts_with(" (")) continue;
    const auto file = files.openForReading(dataFolder + name);
    if (InterruptedFile(files, temporaryFile).compareWith(*file) > 0) return true;
  }
  return false;
}

void addIfToBeRecovered(Files& files, const std::string& path, std::vector<Interrupted>& found) {
  InterruptedFile file(files, path);
  if (!file.isTemporary()) return;
  const FileHeader& header = file.header();
  Interrupted each{path, file.sideFile(),  header.subject,        header.date, file.dataFileName(),
                   0,    header.noteCount, file.notesAreDamaged()};
  each.blocks = file.countBlocks();
  if (each.blocks > 0 && !isInADataFile(files, path, each.dataFileName)) found.push_back(std::move(each));
}

/// The examination's own name, if a file can have it: the side file may be damaged.
std::string nameToTry(Files& files, const InterruptedFile& file) {
  const std::string& own = file.dataFileName();
  const bool usable = own.size() > dataEnding.size() && own.ends_with(dataEnding) && !own.starts_with('.') &&
                      files.nameFault(dataFolder, own) == platform::NameFault::none;
  if (usable) return own;
  const std::string day = file.header().date + "          ";
  return "Esame recuperato " + day.substr(6, 4) + "-" + day.substr(3, 2) + "-" + day.substr(0, 2) +
         std::string(dataEnding);
}

void writeUnfinished(Files& files, InterruptedFile& file) {
  const auto output = files.create(unfinishedPath);
  file.writeTo(*output);
  output->synchronise();
}

/// What was written is read back. Returns the number of its blocks.
std::int64_t blocksOnDisk(Files& files, const std::string& temporaryFile) {
  const auto written = files.openForReading(unfinishedPath);
  const std::int64_t blocks = InterruptedFile(files, temporaryFile).compareWith(*written);
  if (blocks == 0) throw RuntimeError(Facts{.cause = Cause::notWritable, .path = unfinishedPath});
  return blocks;
}

/// The new name is forced onto the disk before the temporary file is removed.
std::string giveItsName(Files& files, const InterruptedFile& file) {
  std::string name = freeFileName(files, dataFolder, nameToTry(files, file));
  files.rename(unfinishedPath, dataFolder + name);
  skipOnFault([&] { files.openForAppending(dataFolder + name)->synchronise(); });
  return name;
}

/// The side file last: alone, it would be set aside with the next recording, but never given to it.
void removeRecovered(Files& files, const std::string& temporaryFile, const std::string& sideFile) {
  skipOnFault([&] { files.remove(temporaryFile); });
  if (!sideFile.empty() && !files.exists(temporaryFile)) skipOnFault([&] { files.remove(sideFile); });
}

Recovery recover(Files& files, const std::string& temporaryFile) {
  Recovery result{RecoveryOutcome::recovered};
  std::string sideFile;
  {
    InterruptedFile file(files, temporaryFile);
    if (!file.isTemporary() || InterruptedFile(files, temporaryFile).countBlocks() == 0)
      return {RecoveryOutcome::nothingToMake};
    writeUnfinished(files, file);
    result.blocks = blocksOnDisk(files, temporaryFile);
    result.notes = file.header().noteCount;
    result.fileName = giveItsName(files, file);
    sideFile = file.sideFile();
  }
  removeRecovered(files, temporaryFile, sideFile);
  return result;
}

/// The temporary file of a running examination must be left alone. One that was set aside is written by nobody, but two
/// programs must not recover it at once.
std::optional<RecoveryOutcome> refusal(LockOutcome outcome, const std::string& temporaryFile) {
  if (outcome == LockOutcome::held) return RecoveryOutcome::folderInUse;
  if (outcome != LockOutcome::taken && temporaryFile == temporaryPath) return RecoveryOutcome::notReservable;
  return std::nullopt;
}

}  // namespace

std::vector<Interrupted> interruptedRecordings(Files& files, const std::string& lockNote) {
  std::vector<Interrupted> found;
  const std::vector<std::string> paths = temporaryFiles(files);
  if (paths.empty()) return found;
  const platform::LockAttempt attempt = files.lock(folderLockPath, lockNote);
  for (const std::string& path : paths)
    if (path != temporaryPath || attempt.outcome == LockOutcome::taken)
      skipOnFault([&] { addIfToBeRecovered(files, path, found); });
  return found;
}

Recovery recoverInterrupted(Files& files, const std::string& temporaryFile, const std::string& lockNote) {
  const platform::LockAttempt attempt = files.lock(folderLockPath, lockNote);
  if (const auto refused = refusal(attempt.outcome, temporaryFile)) return {*refused};
  try {
    if (!files.exists(temporaryFile)) return {RecoveryOutcome::nothingToMake};
    return recover(files, temporaryFile);
  } catch (const RuntimeError& fault) {
    skipOnFault([&] { files.remove(unfinishedPath); });
    return {.outcome = RecoveryOutcome::failed, .fault = fault.facts()};
  }
}

}  // namespace korvinel
