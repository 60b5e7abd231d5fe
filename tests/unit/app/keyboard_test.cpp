#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QShortcut>
#include <set>

#include "unit/app/shown_windows.h"

/// Every window with the keyboard alone, and as an assistive program sees it.
namespace korvinel {
namespace {

using testing::IsEmpty;
using testing::Not;

std::string accessibleText(QWidget* widget, QAccessible::Text which) {
  return QAccessible::queryAccessibleInterface(widget)->text(which).toStdString();
}

/// The Alt shortcuts of a window's widgets.
std::vector<QKeySequence> shortcuts(QWidget& window) {
  std::vector<QKeySequence> keys;
  for (const auto* button : window.findChildren<QAbstractButton*>())
    if (!button->shortcut().isEmpty()) keys.push_back(button->shortcut());
  for (const auto* shortcut : window.findChildren<QShortcut*>()) keys.push_back(shortcut->key());
  return keys;
}

TEST(Keyboard, EverythingThatTakesTheKeyboardHasANameAHelpAndAPlaceInTheTabChain) {
  ShownWindows windows;
  for (QWidget* window : windows.all()) {
    const auto chain = tabChain(*window);
    EXPECT_THAT(focusable(*window), Not(IsEmpty()));
    for (QWidget* widget : focusable(*window)) {
      const std::string name = accessibleText(widget, QAccessible::Name);
      EXPECT_THAT(name, Not(IsEmpty())) << widget->metaObject()->className();
      EXPECT_FALSE(widget->whatsThis().isEmpty()) << name;
      EXPECT_TRUE(!widget->toolTip().isEmpty() || dynamic_cast<platform::SurfaceView*>(widget) != nullptr) << name;
      EXPECT_NE(std::find(chain.begin(), chain.end(), widget), chain.end()) << name << " is outside the tab chain";
    }
  }
}

TEST(Keyboard, EverySurfaceHasANameAndAHelpAndNoTextButWhatIsPrinted) {
  ShownWindows windows;
  windows.mainModel.messagePanel.print("uno");
  for (QWidget* window : windows.all())
    for (QWidget* widget : window->findChildren<QWidget*>()) {
      const auto* surface = dynamic_cast<platform::SurfaceView*>(widget);
      if (surface == nullptr) continue;
      EXPECT_THAT(accessibleText(widget, QAccessible::Name), Not(IsEmpty()));
      const bool isGround = surface->objectName() == "Didascalie degli assi";
      EXPECT_EQ(surface->whatsThis().isEmpty(), isGround) << surface->objectName().toStdString();
      EXPECT_TRUE(surface->toolTip().isEmpty());
    }
  auto* traces = windows.mainView.findChild<QWidget*>("Tracciato 1");
  EXPECT_EQ(accessibleText(traces, QAccessible::Description), "");
}

TEST(Keyboard, EveryControlIsReachedByALetterOfItsOwnThatItsToolTipNames) {
  ShownWindows windows;
  const std::vector<QWidget*> withLetters = {&windows.mainView, &windows.reportView};
  for (QWidget* window : withLetters) {
    const auto keys = shortcuts(*window);
    EXPECT_EQ(keys.size(), focusable(*window).size());
    EXPECT_EQ(std::set<QKeySequence>(keys.begin(), keys.end()).size(), keys.size());
    for (QWidget* widget : focusable(*window))
      EXPECT_TRUE(widget->whatsThis().contains(" (Alt+")) << widget->whatsThis().toStdString();
  }
}

TEST(Keyboard, ARingSurroundsWhateverHasTheKeyboard) {
  ShownWindows windows;
  windows.mainView.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.mainView));
  auto* ground = windows.mainView.centralWidget();
  for (QWidget* widget : focusable(windows.mainView)) {
    widget->setFocus();
    const QColor above(ground->grab().toImage().pixelColor(widget->geometry().center().x(), widget->y() - 1));
    EXPECT_EQ(above, QColor(13, 92, 171)) << widget->objectName().toStdString();
  }
}

}  // namespace
}  // namespace korvinel
