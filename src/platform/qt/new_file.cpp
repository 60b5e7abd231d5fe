#include "platform/qt/new_file.h"

#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryFile>

#include "platform/folders.h"

namespace korvinel::platform {
namespace {

bool holds(QTemporaryFile& file, const QByteArray& bytes) {
  if (file.write(bytes) != bytes.size() || !file.flush() || !file.seek(0)) return false;
  return file.readAll() == bytes;
}

}  // namespace

NewFile writeNewFile(const QString& path, const QByteArray& bytes, qint64 roomToLeave) {
  const QStorageInfo disk(QFileInfo(path).path());
  if (disk.isValid() && disk.bytesAvailable() - bytes.size() < roomToLeave) return NewFile::noRoom;
  QTemporaryFile file(QFileInfo(path).path() + "/Stampa.XXXXXX");
  if (!file.open() || !holds(file, bytes) || !file.rename(path)) return NewFile::failed;
  file.setAutoRemove(false);
  admitWhomTheFolderAdmits(path.toStdString());
  return NewFile::written;
}

}  // namespace korvinel::platform
