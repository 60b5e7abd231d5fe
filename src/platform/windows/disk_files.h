#pragma once

#include "platform/files.h"

namespace korvinel::platform {

/// Files on the disk, at the very paths of the program; a new one has the rights that its folder hands down. What is no
/// ordinary file (a folder, a device such as "COM1" or "NUL" in whatever folder and with whatever ending) can be
/// neither read nor written.
class DiskFiles : public Files {
 public:
  DiskFiles() = default;
  explicit DiskFiles(const std::string& /*dataFolder*/) {}  ///< nothing is mapped here

  [[nodiscard]] std::unique_ptr<InputFile> openForReading(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> create(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> createNew(const std::string& path) override;
  [[nodiscard]] std::unique_ptr<OutputFile> openForAppending(const std::string& path) override;
  /// A name that the system keeps for a device counts as taken.
  [[nodiscard]] bool exists(const std::string& path) override;
  void remove(const std::string& path) override;
  void rename(const std::string& from, const std::string& to) override;
  [[nodiscard]] NameFault nameFault(const std::string& folder, const std::string& name) override;
  [[nodiscard]] LockAttempt lock(const std::string& path, const std::string& note) override;
  [[nodiscard]] std::vector<std::string> list(const std::string& folder, const std::string& ending) override;
};

}  // namespace korvinel::platform
