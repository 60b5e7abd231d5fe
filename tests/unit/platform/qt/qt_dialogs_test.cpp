#include "platform/qt/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QWindow>
#include <functional>
#include <memory>
#include <vector>

namespace korvinel::platform {
namespace {

struct QtDialogsTest : testing::Test {
  OperationEdge edge;
  QTemporaryDir folder;
  QtDialogs dialogs{edge,
                    {[this](const std::string& path) { return path == "C:\\X\\" ? folder.path().toStdString() : path; },
                     [](const std::string& path) { return "program:" + path; }}};
  std::function<void(QDialog&)> action;
  QTimer user;

  void SetUp() override {
    user.callOnTimeout([this] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      user.stop();
      action(*box);
      if (!box->isVisible()) return;
      ADD_FAILURE() << "nobody has answered the box";
      box->reject();
    });
  }

  /// What the user does with the next box, as soon as it stands.
  void act(std::function<void(QDialog&)> what) {
    action = std::move(what);
    user.start(1);
  }
};

void press(QDialog& box, const QString& caption) {
  for (QAbstractButton* button : box.findChildren<QAbstractButton*>())
    if (button->text().remove('&') == caption) return button->click();
  ADD_FAILURE() << "no button " << caption.toStdString();
}

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

/// The cells of the dialog's list of files, as a screen reader reads them.
std::vector<QAccessibleInterface*> cellsOf(QDialog& box) {
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(box.findChild<QTreeView*>());
  std::vector<QAccessibleInterface*> cells;
  for (int i = 0; i < list->childCount(); ++i) cells.push_back(list->child(i));
  return cells;
}

QStringList namesOf(const std::vector<QAccessibleInterface*>& cells) {
  QStringList names;
  for (const QAccessibleInterface* cell : cells) names << cell->text(QAccessible::Name);
  return names;
}

void makeFile(const QString& path) {
  QFile file(path);
  ASSERT_TRUE(file.open(QFile::WriteOnly));
}

TEST_F(QtDialogsTest, AScreenReaderFindsTheFilesByNameAndChoosesOne) {
  makeFile(folder.filePath("a.QVD"));
  makeFile(folder.filePath("b.QVD"));
  QStringList names;
  act([&](QDialog& box) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return namesOf(cellsOf(box)).contains("b.QVD"); }));
    const auto cells = cellsOf(box);
    names = namesOf(cells);
    QAccessibleInterface* chosen = cells[static_cast<std::size_t>(names.indexOf("b.QVD"))];
    EXPECT_EQ(chosen->role(), QAccessible::ListItem);
    EXPECT_FALSE(chosen->state().selected);
    EXPECT_EQ(chosen->parent()->childAt(chosen->rect().center().x(), chosen->rect().center().y()), chosen);
    EXPECT_EQ(chosen->parent()->indexOfChild(chosen), names.indexOf("b.QVD"));
    chosen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(chosen->state().selected);
    EXPECT_EQ(chosen->parent()->focusChild(), chosen);
    press(box, "Apri");
  });
  EXPECT_EQ(dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|"), "program:" + folder.filePath("b.QVD").toStdString());
  EXPECT_LT(names.indexOf("a.QVD"), names.indexOf("b.QVD"));
}

TEST_F(QtDialogsTest, WhatAScreenReaderLearnedOfTheFilesGoesWithTheDialog) {
  makeFile(folder.filePath("a.QVD"));
  std::vector<QAccessible::Id> ids;
  act([&](QDialog& box) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return namesOf(cellsOf(box)).contains("a.QVD"); }));
    for (int again = 0; again < 2; ++again)
      for (QAccessibleInterface* cell : cellsOf(box)) ids.push_back(QAccessible::uniqueId(cell));
    press(box, "Annulla");
  });
  dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|");
  ASSERT_FALSE(ids.empty());
  for (const QAccessible::Id id : ids) EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST_F(QtDialogsTest, AFileThatGoesLeavesItsCellWithoutAName) {
  makeFile(folder.filePath("a.QVD"));
  act([&](QDialog& box) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return namesOf(cellsOf(box)).contains("a.QVD"); }));
    const auto cells = cellsOf(box);
    QAccessibleInterface* cell = cells[static_cast<std::size_t>(namesOf(cells).indexOf("a.QVD"))];
    EXPECT_TRUE(QFile::remove(folder.filePath("a.QVD")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !cell->isValid(); }));
    EXPECT_EQ(cell->text(QAccessible::Name), "");
    EXPECT_TRUE(cell->rect().isEmpty());
    press(box, "Annulla");
  });
  dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|");
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
