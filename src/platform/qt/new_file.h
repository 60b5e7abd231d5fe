#pragma once

#include <QByteArray>
#include <QString>

namespace korvinel::platform {

enum class NewFile {
  written,
  noRoom,  ///< less than `roomToLeave` bytes would stay free
  failed,
};

/// Puts a finished file on the disk, whole or not at all: it is written under another name, read back, and only then
/// gets its own. Never replaces a file, never follows a link. What is not finished is removed; where the system knows
/// files without a name, even if the program is killed meanwhile.
[[nodiscard]] NewFile writeNewFile(const QString& path, const QByteArray& bytes, qint64 roomToLeave);

}  // namespace korvinel::platform
