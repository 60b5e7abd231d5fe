#include "platform/qt/new_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>

namespace korvinel::platform {
namespace {

struct NewFileTest : testing::Test {
  QTemporaryDir folder;
  QString path = folder.filePath("pagina.pdf");
  QByteArray bytes{300'000, 'x'};
  QStringList names() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System); }
  QByteArray content() const {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
  }
};

TEST_F(NewFileTest, HoldsAllBytesAndNothingElseIsLeft) {
  EXPECT_EQ(writeNewFile(path, bytes, 0), NewFile::written);
  EXPECT_EQ(content(), bytes);
  EXPECT_EQ(names(), QStringList("pagina.pdf"));
}

TEST_F(NewFileTest, IsReadByWhomItsFolderAdmits) {
  const mode_t before = umask(0027);
  for (const auto& [above, mode] : {std::pair<mode_t, mode_t>{0700, 0600}, {0750, 0640}, {02770, 0640}}) {
    chmod(folder.path().toStdString().c_str(), above);
    EXPECT_EQ(writeNewFile(path, bytes, 0), NewFile::written);
    struct stat status {};
    ASSERT_EQ(stat(path.toStdString().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, mode) << std::oct << above;
    QFile::remove(path);
  }
  umask(before);
}

TEST_F(NewFileTest, NeverReplacesAFile) {
  ASSERT_EQ(writeNewFile(path, "prima", 0), NewFile::written);
  EXPECT_EQ(writeNewFile(path, bytes, 0), NewFile::failed);
  EXPECT_EQ(content(), "prima");
  EXPECT_EQ(names(), QStringList("pagina.pdf"));
}

TEST_F(NewFileTest, LeavesTheRoomThatOthersNeed) {
  constexpr qint64 moreThanAnyDisk = 1'000'000'000'000'000'000;
  EXPECT_EQ(writeNewFile(path, bytes, moreThanAnyDisk), NewFile::noRoom);
  EXPECT_TRUE(names().isEmpty());
}

TEST_F(NewFileTest, AFolderThatIsNotThereIsAFailure) {
  EXPECT_EQ(writeNewFile(folder.filePath("nessuna/pagina.pdf"), bytes, 0), NewFile::failed);
}

/// A limit on the size of files, for the lifetime of the object.
struct FileSizeLimit {
  explicit FileSizeLimit(rlim_t size) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{size, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before); }
  rlimit before{};
};

TEST_F(NewFileTest, WhatDoesNotFitLeavesNothing) {
  {
    const FileSizeLimit limit(100'000);
    EXPECT_EQ(writeNewFile(path, bytes, 0), NewFile::failed);
  }
  EXPECT_TRUE(names().isEmpty());
  EXPECT_EQ(writeNewFile(path, bytes, 0), NewFile::written);
}

}  // namespace
}  // namespace korvinel::platform
