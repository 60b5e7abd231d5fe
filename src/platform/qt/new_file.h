#pragma once

#include <QByteArray>
#include <QString>

namespace korvinel::platform {

enum class NewFile {
  written,
  noRoom,  ///< less than `roomToLeave` bytes would stay free
  failed,
};

/// Writes a file to the disk completely or not at all: it is written under another name, read back, and only then
/// renamed. Never replaces a file, never follows a link. An unfinished file is removed; if the system supports files
/// without a name, even when the program is killed.
/// It has the access rights of any new file in the folder.
[[nodiscard]] NewFile writeNewFile(const QString& path, const QByteArray& bytes, qint64 roomToLeave);

}  // namespace korvinel::platform
