#include "platform/qt/file_list_access.h"

#include <QTest>

#include "unit/platform/qt/answered_boxes.h"

namespace korvinel::platform {
namespace {

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

}  // namespace
}  // namespace korvinel::platform
