#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QTreeView>
#include <QWindow>
#include <memory>

#include "unit/platform/qt/answered_boxes.h"

namespace korvinel::platform {
namespace {

TEST_F(QtDialogsTest, ANoticeHasItsLinesTheProgramsNameAndOk) {
  QString text, title;
  qsizetype buttons = 0;
  act([&](QDialog& box) {
    text = dynamic_cast<QMessageBox&>(box).text();
    title = box.windowTitle();
    buttons = dynamic_cast<QMessageBox&>(box).buttons().size();
    press(box, "OK");
  });
  dialogs.notice("Attenzione: \roccorrono <7> minuti");
  EXPECT_EQ(text, "Attenzione: \noccorrono <7> minuti");
  EXPECT_EQ(title, "Korvinel");
  EXPECT_EQ(buttons, 1);
}

TEST_F(QtDialogsTest, AQuestionIsAnsweredByItsButtonsOrByClosingTheBox) {
  act([](QDialog& box) { press(box, "OK"); });
  EXPECT_EQ(dialogs.ask("Continuare?", "Error!"), Choice::ok);
  act([](QDialog& box) { press(box, "Cancel"); });
  EXPECT_EQ(dialogs.ask("Continuare?", "Error!"), Choice::cancel);
  act([](QDialog& box) { box.close(); });
  EXPECT_EQ(dialogs.ask("Continuare?", "Error!"), Choice::cancel);
  act([](QDialog& box) { box.reject(); });
  EXPECT_EQ(dialogs.ask("Continuare?", "Error!"), Choice::cancel);
}

TEST_F(QtDialogsTest, AnInputGivesTheLineOrNothingOnCancel) {
  act([](QDialog& box) {
    EXPECT_EQ(box.findChild<QLabel*>()->text(), "Soglia\nnuova");
    box.findChild<QLineEdit*>()->setText("95");
    press(box, "OK");
  });
  EXPECT_EQ(dialogs.input("Soglia\rnuova", "Artefacts", {200, 400}), "95");
  act([](QDialog& box) {
    box.findChild<QLineEdit*>()->setText("95");
    press(box, "Cancel");
  });
  EXPECT_EQ(dialogs.input("Soglia", "Artefacts", {200, 400}), "");
}

TEST_F(QtDialogsTest, EnterConfirmsAndEscapeCancelsEveryBox) {
  const auto key = [this](Qt::Key which) { act([which](QDialog& box) { QTest::keyClick(&box, which); }); };
  key(Qt::Key_Return);
  dialogs.notice("Attenzione");
  key(Qt::Key_Escape);
  dialogs.notice("Attenzione");
  key(Qt::Key_Return);
  EXPECT_EQ(dialogs.ask("Continuare?", "Error!"), Choice::ok);
  key(Qt::Key_Escape);
  EXPECT_EQ(dialogs.ask("Continuare?", "Error!"), Choice::cancel);
  const auto keyAfterText = [this](Qt::Key which) {
    act([which](QDialog& box) {
      box.findChild<QLineEdit*>()->setText("95");
      QTest::keyClick(&box, which);
    });
  };
  keyAfterText(Qt::Key_Return);
  EXPECT_EQ(dialogs.input("Soglia", "Artefacts", {200, 400}), "95");
  keyAfterText(Qt::Key_Escape);
  EXPECT_EQ(dialogs.input("Soglia", "Artefacts", {200, 400}), "");
  key(Qt::Key_Escape);
  EXPECT_EQ(dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|"), "");
}

TEST_F(QtDialogsTest, EnterOpensTheFileThatIsNamed) {
  const QString path = folder.filePath("a.QVD");
  QFile file(path);
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  act([&](QDialog& box) {
    auto* name = box.findChild<QLineEdit*>();
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
  });
  EXPECT_EQ(dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|"), "program:" + path.toStdString());
}

TEST_F(QtDialogsTest, AnInputBoxStaysOnTheScreen) {
  QRect place;
  act([&](QDialog& box) {
    place = box.frameGeometry();
    press(box, "Cancel");
  });
  dialogs.input("Soglia", "Artefacts", {1'000'000, 1'000'000});
  EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(place));
}

TEST_F(QtDialogsTest, AChosenFileComesInTheProgramsNotation) {
  const QString path = folder.filePath("a.QVD");
  QFile file(path);
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  QString startFolder;
  act([&](QDialog& box) {
    auto& chooser = dynamic_cast<QFileDialog&>(box);
    startFolder = chooser.directory().path();
    box.findChild<QLineEdit*>()->setText(path);
    press(box, "Apri");
  });
  EXPECT_EQ(dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|"), "program:" + path.toStdString());
  EXPECT_EQ(startFolder, folder.path());
}

TEST_F(QtDialogsTest, ARecordingIsNeitherRenamedNorDeletedWhereOneIsOpened) {
  makeFile(folder.filePath("a.QVD"));
  act([&](QDialog& box) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return namesOf(cellsOf(box)).contains("a.QVD"); }));
    auto* list = box.findChild<QTreeView*>();
    list->setCurrentIndex(list->indexAt(QPoint(5, 5)));
    EXPECT_EQ(list->currentIndex().data().toString(), "a.QVD");
    EXPECT_FALSE(list->currentIndex().flags().testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(box.findChild<QFileSystemModel*>()->isReadOnly());
    press(box, "Annulla");
  });
  dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|");
}

TEST_F(QtDialogsTest, NoFileIsNothing) {
  act([](QDialog& box) { press(box, "Annulla"); });
  EXPECT_EQ(dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|"), "");
}

TEST_F(QtDialogsTest, ABoxStandsOverTheActiveWindowAndOutlivesIt) {
  auto window = std::make_unique<QWidget>();
  window->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  bool over = false, still = false;
  act([&](QDialog& box) {
    over = box.windowHandle()->transientParent() == window->windowHandle();
    window.reset();
    still = box.isVisible();
    press(box, "Cancel");
  });
  EXPECT_EQ(dialogs.ask("Continuare?", "Error!"), Choice::cancel);
  EXPECT_TRUE(over);
  EXPECT_TRUE(still);
}

TEST_F(QtDialogsTest, ABoxThatOutlivesTheProgramEndsItsOperation) {
  act([this](QDialog& box) {
    edge.run([] { throw ProgramEnd{}; });
    box.reject();
  });
  EXPECT_THROW(dialogs.notice("Attenzione"), ProgramEnd);
}

TEST_F(QtDialogsTest, NoBoxOpensOnceTheProgramHasEnded) {
  edge.run([] { throw ProgramEnd{}; });
  EXPECT_THROW(dialogs.notice("Attenzione"), ProgramEnd);
}

TEST_F(QtDialogsTest, LastWordsAreShownAfterTheEnd) {
  edge.run([] { throw ProgramEnd{}; });
  const LastWords guard(dialogs);
  bool shown = false;
  act([&](QDialog& box) {
    shown = true;
    press(box, "OK");
  });
  dialogs.notice("Attenzione");
  EXPECT_TRUE(shown);
  act([](QDialog& box) { press(box, "Cancel"); });
  EXPECT_EQ(dialogs.ask("Rinunciare?", "Korvinel"), Choice::cancel);
}

TEST_F(QtDialogsTest, AChosenFolderComesWithItsSeparatorInTheProgramsNotation) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("chiavetta"));
  QString startFolder, title;
  act([&](QDialog& box) {
    title = box.windowTitle();
    startFolder = dynamic_cast<QFileDialog&>(box).directory().path();
    box.findChild<QLineEdit*>()->setText(folder.filePath("chiavetta"));
    press(box, "Scegli");
  });
  EXPECT_EQ(dialogs.chooseFolder("Dove salvare", "C:\\X\\"),
            "program:" + folder.filePath("chiavetta").toStdString() + "/");
  EXPECT_EQ(startFolder, folder.path());
  EXPECT_EQ(title, "Dove salvare");
  act([](QDialog& box) { press(box, "Annulla"); });
  EXPECT_EQ(dialogs.chooseFolder("Dove salvare", "C:\\X\\"), "");
}

TEST(ToolkitFilter, JoinsLabelsAndPatterns) {
  EXPECT_EQ(toolkitFilter("(*.QVD)|*.QVD|"), "(*.QVD)");
  EXPECT_EQ(toolkitFilter("Registrazioni|*.QVD|Tutti|*|"), "Registrazioni (*.QVD);;Tutti (*)");
  EXPECT_EQ(toolkitFilter(""), "");
}

}  // namespace
}  // namespace korvinel::platform
