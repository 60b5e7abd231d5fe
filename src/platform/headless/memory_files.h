#pragma once

#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"

namespace korvinel::platform {

/// Files in memory, by their full path, which can be made to run out of space or to refuse writing. No file can be
/// created under, or renamed to, a name that breaks the rules of `nameFault`.
class MemoryFiles : public Files {
 public:
  std::map<std::string, std::string> content;                         ///< path -> bytes
  std::int64_t freeSpace = std::numeric_limits<std::int64_t>::max();  ///< bytes that can still be written
  bool readOnly = false;                                              ///< nothing can be created, written or removed
  bool offersLocks = true;
  std::string goneFolder;                        ///< a folder that has disappeared with its content; "" = none
  std::vector<std::string> unreadable;           ///< paths that exist but cannot be opened
  std::map<std::string, std::size_t> failingAt;  ///< path -> byte that cannot be read

  std::size_t longestName = 255;     ///< bytes
  std::vector<std::string> devices;  ///< names reserved for devices, in upper case and without ending

  [[nodiscard]] std::unique_ptr<InputFile> openForReading(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> create(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> createNew(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> openForAppending(const std::string& path) override;
  [[nodiscard]] bool exists(const std::string& path) override {
    return !isGone(path) && (content.contains(path) || isFolder(path));
  }
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  [[nodiscard]] NameFault nameFault(const std::string& folder, const std::string& name) override;
  [[nodiscard]] LockAttempt lock(const std::string& path, const std::string& note) override;
  [[nodiscard]] std::vector<std::string> list(const std::string& folder, const std::string& ending) override;

 private:
  class Lock;
  class Input;
  class Output;

  [[nodiscard]] bool isGone(const std::string& path) const {
    return !goneFolder.empty() && path.starts_with(goneFolder);
  }
  [[nodiscard]] bool isFolder(const std::string& path) const;  ///< a file is in it
  void refuseIfReadOnly(const std::string& path) const;
  void refuseBadName(const std::string& path);

  std::set<std::string> locked_;
};

}  // namespace korvinel::platform
