#pragma once

#include "platform/files.h"

namespace korvinel::platform {

/// Files on the disk, at the program's own paths; a new file inherits its folder's rights. Anything but an ordinary
/// file (a folder, a device such as "COM1" or "NUL" in any folder and with any ending) can be neither read nor written.
class DiskFiles : public Files {
 public:
  DiskFiles() = default;
  explicit DiskFiles(const std::string& /*dataFolder*/) {}  ///< no paths are mapped here

  [[nodiscard]] std::unique_ptr<InputFile> openForReading(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> create(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> createNew(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> openForAppending(const std::string& path) override;
  /// A name reserved for a device counts as existing.
  [[nodiscard]] bool exists(const std::string& path) override;
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  [[nodiscard]] NameFault nameFault(const std::string& folder, const std::string& name) override;
  [[nodiscard]] LockAttempt lock(const std::string& path, const std::string& note) override;
  [[nodiscard]] std::vector<std::string> list(const std::string& folder, const std::string& ending) override;
};

}  // namespace korvinel::platform
