#pragma once

#include <string>

#include "guidance/settings.h"

namespace korvinel::guidance {

/// The settings of one user and the file that keeps them, `impostazioni.txt` in a folder. Nothing here is ever a fault:
/// without the file the defaults apply, and what cannot be written is not kept.
class SettingsFile {
 public:
  /// Reads the file. A damaged one is renamed to `impostazioni-danneggiate.txt`, so that nothing in it is lost.
  /// `folder`: in the host's notation, UTF-8, need not exist; "": nothing is read or kept.
  explicit SettingsFile(std::string folder);

  Settings settings;

  /// For the status line: why the user's settings do not apply; "" = they do, or there are none.
  [[nodiscard]] const std::string& notice() const { return notice_; }

  /// Writes the file if the settings have changed: under another name, renamed when it is complete. Returns whether
  /// they are on the disk.
  bool save();

 private:
  [[nodiscard]] std::string pathOf(const char* name) const;
  void read();
  void setDamagedFileAside();

  std::string folder_, notice_;
  std::string onDisk_;  ///< the file's content as far as known, "" = unknown
};

}  // namespace korvinel::guidance
