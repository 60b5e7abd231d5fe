#include "platform/qt/help.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/qt/surface_view.h"

namespace korvinel::platform {
namespace {

TEST(Help, IsTheToolTipAndTheAnswerToShiftF1AndNamesTheLetter) {
  QPushButton button;
  explain(button, {"Inizia l'esame.", 'S'});
  EXPECT_EQ(button.whatsThis(), "Inizia l'esame. (Alt+S)");
  EXPECT_EQ(button.toolTip(), button.whatsThis());
  explain(button, {"Senza lettera."});
  EXPECT_EQ(button.whatsThis(), "Senza lettera.");
}

TEST(Help, OfASurfaceIsNoToolTipWhichWouldHideTheSignal) {
  Surface model("Tracciato 1", 100, 100, 10);
  SurfaceView view(model);
  explain(view, {"I canali 1 e 2."});
  EXPECT_EQ(view.whatsThis(), "I canali 1 e 2.");
  EXPECT_EQ(view.toolTip(), "");
}

TEST(Help, TheLetterPressesAButtonAndFocusesAnythingElse) {
  QWidget window;
  QPushButton button("Start", &window);
  QLineEdit box(&window);
  explain(button, {"Inizia.", 'S'});
  explain(box, {"Il nome.", 'N'});
  int presses = 0;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++presses; });
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  button.setFocus();
  QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(box.hasFocus());
  QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return presses == 1; }));
}

TEST(Help, LinesEndBetweenWordsBefore65Letters) {
  const QString word(30, 'a');
  EXPECT_EQ(inLines(word + " " + word + " bcd"), word + " " + word + "\nbcd");
  EXPECT_EQ(inLines(word + " " + word + " bc"), word + " " + word + " bc");
  const QString longWord(70, 'b');
  EXPECT_EQ(inLines("a " + longWord + " c"), "a\n" + longWord + "\nc");
  EXPECT_EQ(inLines(""), "");
}

}  // namespace
}  // namespace korvinel::platform
