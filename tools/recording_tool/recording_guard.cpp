#include "recording_tool/recording_guard.h"

#include <algorithm>
#include <filesystem>

#include "platform/machine.h"
#include "recording/data_paths.h"
#include "recording/lock_note.h"
#include "recording_tool/messages.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"
#include "values/code_page.h"

namespace korvinel::tool {
namespace {

namespace fs = std::filesystem;

std::string nameIn(const std::string& programPath) { return programPath.substr(programPath.rfind('\\') + 1); }

std::string oneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char sign) { return static_cast<unsigned char>(sign) < ' '; }, ' ');
  return text;
}

std::string ownNote() { return lockNote(platform::hostIdentity(), "korvinel-recording recover"); }

/// Who records, or recovers, there.
std::string holderOf(const std::string& note) {
  const auto holder = holderIn(note);
  if (!holder) return "by another program";
  const std::string since = holder->since.empty() ? "" : ", since " + holder->since + " on " + holder->day;
  return oneLine("by user " + holder->self.user + " on computer " + holder->self.computer + ", process " +
                 std::to_string(holder->self.process) + since);
}

/// The folder's lock file; "" if the file is not one that is recorded into, or nobody has ever recorded there.
std::string lockPathBeside(const std::string& temporaryFile) {
  std::error_code error;
  const fs::path file = fs::canonical(pathOf(temporaryFile), error);
  if (error || upperCase(utf8Of(file.filename())) != upperCase(nameIn(temporaryPath))) return "";
  const fs::path lock = file.parent_path() / nameIn(folderLockPath);
  return fs::exists(lock, error) ? utf8Of(lock) : "";
}

}  // namespace

std::unique_ptr<platform::FileLock> holdAgainstRecording(const std::string& temporaryFile) {
  const std::string lockPath = lockPathBeside(temporaryFile);
  if (lockPath.empty()) return nullptr;
  platform::LockAttempt attempt = platform::hostFiles("")->lock(lockPath, ownNote());
  if (attempt.outcome == platform::LockOutcome::held)
    throw ToolError(temporaryFile, "is being recorded into, and is left alone: " + holderOf(attempt.told));
  if (attempt.outcome != platform::LockOutcome::taken)
    tell(temporaryFile,
         "whether it is being recorded into could not be found out: " +
             (attempt.outcome == platform::LockOutcome::notOrdinary ? attempt.told + " is not an ordinary file"
                                                                    : attempt.told));
  return std::move(attempt.lock);
}

}  // namespace korvinel::tool
