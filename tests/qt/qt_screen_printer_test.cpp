#include "platform/qt/qt_screen_printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include "platform/headless/scripted_dialogs.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

struct QtScreenPrinterTest : testing::Test {
  QTemporaryDir folder;
  ScriptedDialogs dialogs;
  QtScreenPrinter printer{dialogs,
                          {[this](const std::string& path) {
                             return folder.filePath(QString::fromStdString(path).section('\\', -1)).toStdString();
                           },
                           [](const std::string& path) { return path; }}};
  QStringList pdfs() const { return QDir(folder.path()).entryList({"*.pdf"}); }
};

TEST_F(QtScreenPrinterTest, ThePictureOfTheActiveWindowGoesToTheClipboard) {
  QWidget window;
  window.resize(120, 80);
  QPalette red;
  red.setColor(QPalette::Window, Qt::red);
  window.setPalette(red);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  printer.emptyClipboard();
  printer.pressPrintScreen(1);
  const QImage picture = QApplication::clipboard()->image();
  EXPECT_EQ(picture.size(), QSize(120, 80));
  EXPECT_EQ(picture.pixel(60, 40), qRgb(255, 0, 0));
}

TEST_F(QtScreenPrinterTest, WithoutAPrinterEachPageBecomesAPdfAndANoticeNamesIt) {
  QImage picture(100, 80, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  QApplication::clipboard()->setImage(picture);
  printer.printClipboard(10, 3, 190, 145);
  printer.printClipboard(10, 3, 190, 145);
  ASSERT_EQ(pdfs().size(), 2);
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_THAT(dialogs.shown.front().text, testing::HasSubstr("C:\\QUARVEL5\\DATAFILE\\Stampa-"));
  QFile file(folder.filePath(pdfs().constFirst()));
  ASSERT_TRUE(file.open(QFile::ReadOnly));
  EXPECT_TRUE(file.readAll().startsWith("%PDF"));
}

TEST_F(QtScreenPrinterTest, AnEmptyClipboardIsAFaultAndNothingIsPrinted) {
  printer.emptyClipboard();
  EXPECT_THROW(printer.printClipboard(10, 3, 190, 145), RuntimeError);
  EXPECT_TRUE(pdfs().isEmpty());
}

TEST_F(QtScreenPrinterTest, IsOfTheSecondFamilyOfSystems) { EXPECT_GE(printer.systemMajorVersion(), 5); }

}  // namespace
}  // namespace korvinel::platform
