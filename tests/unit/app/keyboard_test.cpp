#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QScrollArea>
#include <QShortcut>
#include <QSlider>
#include <QTest>
#include <QToolTip>
#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/comment_window_view.h"
#include "app/main_window_view.h"
#include "app/report_window_view.h"

/// Each window with the keyboard alone, and as an assistive program sees it.
namespace korvinel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

struct Windows {
  Windows() {
    mainModel.noteBox.setEnabled(true);
    for (QWidget* window : all()) {
      // The main window gets its captions at start-up, the report when it loads.
      for (auto* button : window->findChildren<QAbstractButton*>())
        if (button->text().isEmpty()) giveCaption(*button);
      window->show();
      window->activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
  }
  static void giveCaption(QAbstractButton& button) {
    const QKeySequence key = button.shortcut();
    button.setText("Scritta");
    button.setShortcut(key);
  }
  std::vector<QWidget*> all() { return {&mainView, &reportView, &commentView}; }

  MainWindow mainModel;
  ReportWindow reportModel;
  CommentWindow commentModel;
  MainWindowView mainView{mainModel, [] { return true; }};
  ReportWindowView reportView{reportModel, nullptr, [] {}};
  CommentWindowView commentView{commentModel, nullptr};
};

std::string accessibleText(QWidget* widget, QAccessible::Text which) {
  return QAccessible::queryAccessibleInterface(widget)->text(which).toStdString();
}

/// What the Tab key reaches, from the first widget round to it again.
std::vector<QWidget*> tabChain(QWidget& window) {
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  if (window.focusWidget() == nullptr) QTest::keyClick(&window, Qt::Key_Tab);
  std::vector<QWidget*> chain;
  for (QWidget* now = window.focusWidget(); std::find(chain.begin(), chain.end(), now) == chain.end();
       now = window.focusWidget()) {
    chain.push_back(now);
    QTest::keyClick(now, Qt::Key_Tab);
  }
  return chain;
}

std::vector<std::string> names(const std::vector<QWidget*>& widgets) {
  std::vector<std::string> all;
  for (QWidget* widget : widgets) all.push_back(widget->objectName().toStdString());
  return all;
}

std::vector<QWidget*> focusable(QWidget& window) {
  std::vector<QWidget*> all;
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (widget->focusPolicy() != Qt::NoFocus) all.push_back(widget);
  return all;
}

/// All keys that the widgets of a window answer to with Alt.
std::vector<QKeySequence> shortcuts(QWidget& window) {
  std::vector<QKeySequence> keys;
  for (const auto* button : window.findChildren<QAbstractButton*>())
    if (!button->shortcut().isEmpty()) keys.push_back(button->shortcut());
  for (const auto* shortcut : window.findChildren<QShortcut*>()) keys.push_back(shortcut->key());
  return keys;
}

TEST(Keyboard, TabGoesThroughTheMainWindowInTheOrderOfAnExamination) {
  Windows windows;
  windows.mainModel.fileNameBox.requestFocus();
  EXPECT_THAT(names(tabChain(windows.mainView)),
              ElementsAre("Nome del file", "Nome del soggetto", "Nota", "Rimozione artefatti oculari",
                          "Scala in microvolt", "Velocita' del display", "Striscia del tempo", "Blocco iniziale",
                          "Avvia l'acquisizione", "Ferma", "Registra l'esame", "Nuova nota", "Cambia coppia di canali",
                          "Soglia degli artefatti", "Apri una registrazione", "Rivedi la registrazione",
                          "Analisi finale", "Stampa l'immagine", "Fine del programma"));
}

TEST(Keyboard, TabGoesThroughTheReportFromTheChoicesToTheButtons) {
  Windows windows;
  EXPECT_THAT(names(tabChain(windows.reportView)),
              ElementsAre("Valori massimi", "Valori medi", "Scala del rapporto in microvolt", "Chiudi il rapporto",
                          "Riscrivi i valori delle bande", "Stampa il rapporto", "Spiega la curva del rumore",
                          "Commenti sui segnali"));
}

TEST(Keyboard, EverythingThatTakesTheKeyboardHasANameAHelpAndAPlaceInTheTabChain) {
  Windows windows;
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
  Windows windows;
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
  Windows windows;
  const std::vector<QWidget*> withLetters = {&windows.mainView, &windows.reportView};
  for (QWidget* window : withLetters) {
    const auto keys = shortcuts(*window);
    EXPECT_EQ(keys.size(), focusable(*window).size());
    EXPECT_EQ(std::set<QKeySequence>(keys.begin(), keys.end()).size(), keys.size());
    for (QWidget* widget : focusable(*window))
      EXPECT_TRUE(widget->whatsThis().contains(" (Alt+")) << widget->whatsThis().toStdString();
  }
}

TEST(Keyboard, ALetterPressesAButtonWhoseCaptionHasNoMarkOfIt) {
  Windows windows;
  int presses = 0;
  windows.mainModel.Starts1.setCaption("Start");  // as start-up does, long after the view was made
  windows.mainModel.Starts1.onPressed = [&] { ++presses; };
  windows.mainView.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.mainView));
  QTest::keyClick(&windows.mainView, Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return presses == 1; }));
  const auto* button = windows.mainView.findChild<QAbstractButton*>("Avvia l'acquisizione");
  EXPECT_EQ(button->text(), "Start");
}

TEST(Keyboard, ALetterGivesATextBoxTheKeyboardUnlessItIsDisabled) {
  Windows windows;
  windows.mainModel.noteBox.setEnabled(false);
  windows.mainView.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.mainView));
  QTest::keyClick(&windows.mainView, Qt::Key_G, Qt::AltModifier);
  EXPECT_EQ(windows.mainView.focusWidget()->objectName(), "Nome del soggetto");
  QTest::keyClick(&windows.mainView, Qt::Key_O, Qt::AltModifier);
  EXPECT_EQ(windows.mainView.focusWidget()->objectName(), "Nome del soggetto");
}

TEST(Keyboard, EnterAndSpacePressTheButtonThatHasTheKeyboard) {
  Windows windows;
  int presses = 0;
  windows.reportModel.explainButton.onPressed = [&] { ++presses; };
  auto* button = windows.reportView.findChild<QWidget*>("Spiega la curva del rumore");
  QTest::keyClick(button, Qt::Key_Return);
  QTest::keyClick(button, Qt::Key_Space);
  EXPECT_EQ(presses, 2);
}

TEST(Keyboard, AHeldKeyPressesAButtonOnce) {
  Windows windows;
  int presses = 0;
  windows.mainModel.Annotax.onPressed = [&] { ++presses; };
  auto* button = windows.mainView.findChild<QWidget*>("Nuova nota");
  for (const bool repeated : {false, true, true}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", repeated);
    QApplication::sendEvent(button, &press);
  }
  EXPECT_EQ(presses, 1);
}

TEST(Keyboard, AfterANoteTheKeyboardIsWhereItWasBefore) {
  Windows windows;
  windows.mainView.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.mainView));
  auto* button = windows.mainView.findChild<QWidget*>("Nuova nota");
  button->setFocus();
  windows.mainModel.noteBox.requestFocus();
  EXPECT_EQ(windows.mainView.focusWidget()->objectName(), "Nota");
  windows.mainModel.noteBox.setEnabled(false);
  EXPECT_EQ(windows.mainView.focusWidget(), button);
}

TEST(Keyboard, ScalesMoveByTheArrowsAndByPages) {
  Windows windows;
  auto* bar = windows.mainView.findChild<QWidget*>("Scala in microvolt");
  for (QWidget* each : windows.mainView.findChildren<QWidget*>("Scala in microvolt"))
    if (each->focusPolicy() != Qt::NoFocus) bar = each;
  const std::pair<Qt::Key, int> cases[] = {
      {Qt::Key_Right, 61}, {Qt::Key_Left, 60}, {Qt::Key_PageUp, 70}, {Qt::Key_End, 200}, {Qt::Key_Home, 10}};
  for (const auto& [key, value] : cases) {
    QTest::keyClick(bar, key);
    EXPECT_EQ(windows.mainModel.HScroll1.value(), value);
  }
}

TEST(Keyboard, AlongTheBlocksPageDownIsOnward) {
  Windows windows;
  auto* slider = windows.mainView.findChild<QSlider*>("Blocco iniziale");
  const std::pair<Qt::Key, int> cases[] = {{Qt::Key_PageDown, 10}, {Qt::Key_Down, 11}, {Qt::Key_Right, 12},
                                           {Qt::Key_Left, 11},     {Qt::Key_Up, 10},   {Qt::Key_PageUp, 0}};
  for (const auto& [key, block] : cases) {
    QTest::keyClick(slider, key);
    EXPECT_EQ(windows.mainModel.Slider1.value(), block);
  }
}

TEST(Keyboard, TheStripCountsItsBlocksFromOne) {
  Windows windows;
  windows.mainView.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.mainView));
  auto* strip = windows.mainView.findChild<QWidget*>("Striscia del tempo");
  const std::pair<Qt::Key, const char*> cases[] = {{Qt::Key_Home, "Secondo 0, blocco 1"},
                                                   {Qt::Key_Right, "Secondo 3, blocco 1"},
                                                   {Qt::Key_Right, "Secondo 6, blocco 2"},
                                                   {Qt::Key_End, "Secondo 600, blocco 200"}};
  for (const auto& [key, tip] : cases) {
    QTest::keyClick(strip, key);
    EXPECT_EQ(QToolTip::text(), tip);
  }
}

TEST(Keyboard, TheCommentsScrollByTheArrowsAndCloseByEscape) {
  Windows windows;
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

TEST(Keyboard, ARingSurroundsWhateverHasTheKeyboard) {
  Windows windows;
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
