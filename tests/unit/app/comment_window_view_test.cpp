#include "app/comment_window_view.h"

#include <gtest/gtest.h>

#include <QScrollArea>

#include "unit/app/shown_windows.h"

namespace korvinel {
namespace {

TEST(Keyboard, TheCommentsScrollByTheArrowsAndCloseByEscape) {
  ShownWindows windows;
  for (int line = 0; line < 40; ++line) windows.commentModel.text.printBelow("una riga");
  auto* scroll = windows.commentView.findChild<QScrollArea*>();
  auto* text = windows.commentView.findChild<QWidget*>("Testo dei commenti");
  ASSERT_TRUE(QTest::qWaitFor([&] { return text->height() > 600; }));
  const int before = text->y();
  QTest::keyClick(scroll, Qt::Key_PageUp);
  EXPECT_GT(text->y(), before);
  QTest::keyClick(scroll, Qt::Key_Escape);
  EXPECT_FALSE(windows.commentView.isVisible());
}

}  // namespace
}  // namespace korvinel
