#include "platform/qt/ghost_text.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>

namespace korvinel::platform {
namespace {

/// A box in which one beginning has a suggestion, and another box after it.
struct BoxWithAGhost : testing::Test {
  QWidget window;
  QLineEdit box{&window}, next{&window};
  GhostText ghost{box, [](const std::string& typed) { return typed == "ross" ? "Rossi Anna" : ""; }};

  void SetUp() override {
    window.resize(300, 100);
    box.setGeometry(10, 10, 200, 26);
    next.setGeometry(10, 50, 200, 26);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    box.setFocus();
    QCoreApplication::processEvents();
  }
};

TEST_F(BoxWithAGhost, TabTakesWhatIsShownAndThenMovesOn) {
  QTest::keyClicks(&box, "ross");
  EXPECT_TRUE(ghost.isVisible());
  EXPECT_EQ(ghost.text(), "i Anna");
  EXPECT_EQ(box.text(), "ross") << "nothing is filled in by itself";
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(box.text(), "Rossi Anna");
  EXPECT_TRUE(box.hasFocus());
  EXPECT_FALSE(ghost.isVisible());
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_TRUE(next.hasFocus());
  EXPECT_EQ(box.text(), "Rossi Anna");
}

TEST_F(BoxWithAGhost, TabWithoutAGhostMovesTheFocus) {
  QTest::keyClicks(&box, "r");
  EXPECT_FALSE(ghost.isVisible());
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_TRUE(next.hasFocus());
  EXPECT_EQ(box.text(), "r");
}

TEST_F(BoxWithAGhost, WhatWasTakenCanBeUndone) {
  QTest::keyClicks(&box, "ross");
  QTest::keyClick(&box, Qt::Key_Tab);
  box.undo();
  EXPECT_NE(box.text(), "Rossi Anna");
}

TEST_F(BoxWithAGhost, StandsBehindTheCaretInsideTheBox) {
  QTest::keyClicks(&box, "ross");
  const QRect cursor = box.inputMethodQuery(Qt::ImCursorRectangle).toRect();
  EXPECT_GT(ghost.x(), cursor.x());
  EXPECT_LT(ghost.x(), cursor.right() + 4);
  EXPECT_TRUE(box.rect().contains(ghost.geometry()));
}

TEST_F(BoxWithAGhost, IsGoneWhereItCouldNotBeTaken) {
  QTest::keyClicks(&box, "ross");
  box.setCursorPosition(1);
  EXPECT_FALSE(ghost.isVisible()) << "the caret is elsewhere";
  box.setCursorPosition(4);
  EXPECT_TRUE(ghost.isVisible());
  box.selectAll();
  EXPECT_FALSE(ghost.isVisible()) << "the next key replaces the text";
  box.deselect();
  box.setReadOnly(true);
  QCoreApplication::processEvents();
  EXPECT_FALSE(ghost.isVisible()) << "during a recording";
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(box.text(), "ross");
}

TEST_F(BoxWithAGhost, IsGoneWithTheFocusAndOnAPage) {
  QTest::keyClicks(&box, "ross");
  ghost.setShown(false);
  EXPECT_FALSE(ghost.isVisible());
  ghost.setShown(true);
  EXPECT_TRUE(ghost.isVisible());
  next.setFocus();
  QCoreApplication::processEvents();
  EXPECT_FALSE(ghost.isVisible());
}

}  // namespace
}  // namespace korvinel::platform
