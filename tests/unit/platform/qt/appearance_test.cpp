#include "platform/qt/appearance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QLineEdit>

#include "platform/qt/qt_text.h"

namespace korvinel::platform {
namespace {

TEST(Appearance, TextsCanBeReadOnTheirGround) {
  struct Case {
    QPalette::ColorGroup group;
    QPalette::ColorRole ink, ground;
    double least;
  };
  const Case cases[] = {{QPalette::Active, QPalette::WindowText, QPalette::Window, 7},
                        {QPalette::Active, QPalette::ButtonText, QPalette::Button, 7},
                        {QPalette::Active, QPalette::Text, QPalette::Base, 7},
                        {QPalette::Active, QPalette::ToolTipText, QPalette::ToolTipBase, 7},
                        {QPalette::Active, QPalette::HighlightedText, QPalette::Highlight, 4.5},
                        {QPalette::Disabled, QPalette::Text, QPalette::Base, 2.5}};
  const QPalette colours = calmColours();
  for (const Case& c : cases)
    EXPECT_GE(contrast(fromQt(colours.color(c.group, c.ink)), fromQt(colours.color(c.group, c.ground))), c.least)
        << c.ink;
}

TEST(Appearance, TheFontIsThere) { EXPECT_EQ(QFontInfo(QApplication::font()).family(), "Inter"); }

TEST(Appearance, TheToolkitsOwnWordsAreItalian) {
  EXPECT_EQ(QCoreApplication::translate("QFileSystemModel", "Date Modified"), "Data di modifica");
}

}  // namespace
}  // namespace korvinel::platform
