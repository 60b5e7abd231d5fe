#include "platform/qt/qt_screen_printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include "platform/headless/scripted_dialogs.h"
#include "platform/qt/focus_ring.h"
#include "platform/qt/printed_part.h"

namespace korvinel::platform {
namespace {

struct QtScreenPrinterTest : testing::Test {
  QTemporaryDir folder;
  ScriptedDialogs dialogs;
  std::string dataFileName;
  QtScreenPrinter printer{dialogs,
                          {[this](const std::string& path) {
                             return folder.filePath(QString::fromStdString(path).section('\\', -1)).toStdString();
                           },
                           [](const std::string& path) { return path; }},
                          [this] { return dataFileName; }};
  /// The sizes of the pictures in a PDF file.
  QStringList picturesIn(const QString& name) const {
    QFile file(folder.filePath(name));
    if (!file.open(QFile::ReadOnly)) return {};
    static const QRegularExpression size("/Width (\\d+)\\s+/Height (\\d+)");
    QStringList sizes;
    for (auto found = size.globalMatch(QString::fromLatin1(file.readAll())); found.hasNext();) {
      const auto match = found.next();
      sizes << match.captured(1) + "x" + match.captured(2);
    }
    return sizes;
  }
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

TEST_F(QtScreenPrinterTest, APageIsNamedAfterTheDataFile) {
  const std::pair<const char*, const char*> cases[] = {
      {"prova.QVD", "prova-"}, {"esame.del.2.QVD", "esame.del.2-"}, {".QVD", "Stampa-"}, {"", "Stampa-"}};
  QApplication::clipboard()->setImage(QImage(10, 8, QImage::Format_RGB32));
  for (const auto& [dataFile, stem] : cases) {
    dataFileName = dataFile;
    printer.printClipboard(10, 3, 190, 145);
    EXPECT_THAT(dialogs.shown.back().text, testing::HasSubstr("C:\\QUARVEL5\\DATAFILE\\" + std::string(stem)));
  }
}

/// The texts of a page, as a viewer finds them.
QString textOf(const QString& pdf) {
  QProcess reader;
  reader.start("pdftotext", {pdf, "-"});
  return reader.waitForFinished() ? QString::fromUtf8(reader.readAllStandardOutput()) : QString();
}

TEST_F(QtScreenPrinterTest, WhatStandsAroundThePrintedPartIsNotOnThePage) {
  QWidget window;
  QLabel notice("Esame interrotto: Verdi", &window);
  QLabel part("Rossi", &window);
  part.setGeometry(0, 40, 300, 160);
  printOnly(window, part);
  window.resize(300, 200);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  printer.emptyClipboard();
  printer.pressPrintScreen(1);
  EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(300, 160));
  printer.printClipboard(10, 3, 190, 145);
  const std::string text = textOf(folder.filePath(pdfs().constFirst())).toStdString();
  EXPECT_THAT(text, testing::HasSubstr("Rossi"));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("Verdi")));
}

TEST_F(QtScreenPrinterTest, ThePagesTextCanBeFound) {
  QWidget window;
  QLabel label("Esame di Niccolò", &window);
  window.resize(300, 200);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  printer.emptyClipboard();
  printer.pressPrintScreen(1);
  printer.printClipboard(10, 3, 190, 145);
  ASSERT_EQ(pdfs().size(), 1);
  EXPECT_THAT(textOf(folder.filePath(pdfs().constFirst())).toStdString(), testing::HasSubstr("Esame di Niccolò"));
  EXPECT_EQ(picturesIn(pdfs().constFirst()).size(), 1) << "which still covers it";
}

TEST_F(QtScreenPrinterTest, AnotherProgramsPictureHasNoTextOfOurs) {
  QWidget window;
  const QLabel label("Esame", &window);
  window.resize(300, 200);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  printer.pressPrintScreen(1);
  QApplication::clipboard()->setImage(QImage(10, 8, QImage::Format_RGB32));
  printer.printClipboard(10, 3, 190, 145);
  EXPECT_EQ(textOf(folder.filePath(pdfs().constFirst())).trimmed(), "");
}

TEST_F(QtScreenPrinterTest, AnEmptyClipboardIsToldAndNothingIsPrinted) {
  printer.emptyClipboard();
  printer.printClipboard(10, 3, 190, 145);
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown.front().text, "La stampa non è riuscita.\rNon c'è un'immagine da stampare.");
  EXPECT_TRUE(pdfs().isEmpty());
}

TEST_F(QtScreenPrinterTest, AFileThatCannotBeWrittenIsTold) {
  QApplication::clipboard()->setImage(QImage(10, 8, QImage::Format_RGB32));
  ASSERT_TRUE(QDir(folder.path()).removeRecursively());
  printer.printClipboard(10, 3, 190, 145);
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_THAT(dialogs.shown.front().text,
              testing::StartsWith("La stampa non è riuscita.\rIl file non si può scrivere:\rC:\\QUARVEL5"));
}

TEST_F(QtScreenPrinterTest, ALinkIsNeverFollowed) {
  QApplication::clipboard()->setImage(QImage(10, 8, QImage::Format_RGB32));
  printer.printClipboard(10, 3, 190, 145);
  const QString printed = folder.filePath(pdfs().constFirst()), elsewhere = folder.filePath("altrove");
  ASSERT_TRUE(QFile::remove(printed));
  // Dangling links with the names of this second's page and of the next ones.
  const QDateTime now = QDateTime::currentDateTime();
  for (int second = 0; second < 5; ++second)
    ASSERT_TRUE(
        QFile::link(elsewhere, folder.filePath("Stampa-" + now.addSecs(second).toString("yyyyMMdd-HHmmss") + ".pdf")));
  printer.printClipboard(10, 3, 190, 145);
  EXPECT_THAT(dialogs.shown.back().text, testing::HasSubstr("Il file non si può scrivere:"));
  EXPECT_FALSE(QFile::exists(elsewhere));
}

/// The colour of the window in the picture that a press of the print key takes.
QColor pictured(QtScreenPrinter& printer) {
  printer.emptyClipboard();
  printer.pressPrintScreen(1);
  return QApplication::clipboard()->image().pixelColor(60, 40);
}

struct Shown {
  explicit Shown(QWidget& window, QColor colour) {
    QPalette palette;
    palette.setColor(QPalette::Window, colour);
    window.setPalette(palette);
    window.resize(120, 80);
    window.show();
    window.activateWindow();
    active = QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; });
  }
  bool active;
};

TEST_F(QtScreenPrinterTest, ABoxIsNeverThePicture) {
  QWidget window;
  ASSERT_TRUE(Shown(window, Qt::red).active);
  for (QWidget* parent : {&window, static_cast<QWidget*>(nullptr)}) {
    QDialog box(parent);
    box.setModal(true);
    ASSERT_TRUE(Shown(box, Qt::blue).active);
    EXPECT_EQ(pictured(printer), QColor(Qt::red));
  }
}

/// A red window, and a blue one that it owns, which is active.
struct ScreenPrintWithTwoWindows : QtScreenPrinterTest {
  QWidget window;
  QDialog comments{&window};

  void SetUp() override {
    ASSERT_TRUE(Shown(window, Qt::red).active);
    ASSERT_TRUE(Shown(comments, Qt::blue).active);
  }
};

TEST_F(ScreenPrintWithTwoWindows, TheActiveOneIsThePictureWhoeverOwnsIt) {
  EXPECT_EQ(pictured(printer), QColor(Qt::blue));
  ASSERT_TRUE(Shown(window, Qt::red).active);
  EXPECT_EQ(pictured(printer), QColor(Qt::red));
}

TEST_F(ScreenPrintWithTwoWindows, UnderABoxTheOneThatWasActiveIsThePicture) {
  for (QWidget* active : {&window, static_cast<QWidget*>(&comments)}) {
    const QColor colour = active->palette().color(QPalette::Window);
    ASSERT_TRUE(Shown(*active, colour).active);
    QDialog box;
    box.setModal(true);
    ASSERT_TRUE(Shown(box, Qt::green).active);
    EXPECT_EQ(pictured(printer), colour);
  }
}

TEST_F(QtScreenPrinterTest, ThePictureHasNoFocusRing) {
  QWidget window;
  ASSERT_TRUE(Shown(window, Qt::red).active);
  printer.pressPrintScreen(1);
  const QImage without = QApplication::clipboard()->image();
  FocusRing ring(&window, 4);
  QWidget focused(&window);
  focused.setGeometry(30, 20, 60, 40);
  focused.show();
  focused.setFocus();
  ASSERT_TRUE(ring.isVisible());
  printer.pressPrintScreen(1);
  EXPECT_EQ(QApplication::clipboard()->image(), without);
  EXPECT_TRUE(ring.isVisible());
  EXPECT_NE(window.grab().toImage(), without);
}

TEST_F(QtScreenPrinterTest, APictureFromElsewhereIsPrintedAsItIs) {
  QWidget window;
  ASSERT_TRUE(Shown(window, Qt::red).active);
  printer.pressPrintScreen(1);
  QImage other(50, 40, QImage::Format_RGB32);
  other.fill(Qt::green);
  QApplication::clipboard()->setImage(other);
  printer.printClipboard(10, 3, 190, 145);
  EXPECT_EQ(picturesIn(pdfs().constFirst()), QStringList{"50x40"});
}

TEST_F(QtScreenPrinterTest, TheCaptureIsPrintedFinerThanTheScreen) {
  QWidget window;
  ASSERT_TRUE(Shown(window, Qt::red).active);
  printer.pressPrintScreen(1);
  printer.printClipboard(10, 3, 190, 145);
  EXPECT_EQ(picturesIn(pdfs().constFirst()), QStringList{"480x320"});
}

TEST_F(QtScreenPrinterTest, IsOfTheSecondFamilyOfSystems) { EXPECT_GE(printer.systemMajorVersion(), 5); }

}  // namespace
}  // namespace korvinel::platform
