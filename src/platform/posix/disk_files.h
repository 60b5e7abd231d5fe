#pragma once

#include "platform/files.h"

namespace korvinel::platform {

/// Files on the disk. A new file is for its owner alone if nobody else may enter its folder; otherwise the user's mask,
/// the folder's group and its access lists apply, so that a practice can share a folder. Anything but an ordinary file
/// (a folder, a device, a pipe) can be neither read nor written.
class DiskFiles : public Files {
 public:
  /// `dataFolder`: holds the program's drive C.
  explicit DiskFiles(std::string dataFolder) : dataFolder_(std::move(dataFolder)) {}

  [[nodiscard]] std::unique_ptr<InputFile> openForReading(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> create(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> createNew(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> openForAppending(const std::string& path) override;
  [[nodiscard]] bool exists(const std::string& path) override;
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  /// A backslash separates folders, as in the program's own notation.
  [[nodiscard]] NameFault nameFault(const std::string& folder, const std::string& name) override;
  [[nodiscard]] LockAttempt lock(const std::string& path, const std::string& note) override;
  [[nodiscard]] std::vector<std::string> list(const std::string& folder, const std::string& ending) override;

  /// A path in the program's notation, and on this machine's disk.
  struct Place {
    std::string path;
    std::string onDisk;
  };

 private:
  [[nodiscard]] Place place(const std::string& path) const;
  [[nodiscard]] static std::unique_ptr<OutputFile> openForWriting(const Place& place, int how);

  std::string dataFolder_;
};

}  // namespace korvinel::platform
