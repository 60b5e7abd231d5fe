#include "app/main_window_view.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QKeyEvent>
#include <QSlider>
#include <QToolTip>

#include "unit/app/shown_windows.h"

namespace korvinel {
namespace {

using testing::ElementsAre;

TEST(Keyboard, TabGoesThroughTheMainWindowInTheOrderOfAnExamination) {
  ShownWindows windows;
  windows.mainModel.fileNameBox.requestFocus();
  EXPECT_THAT(names(tabChain(windows.mainView)),
              ElementsAre("Nome del file", "Nome del soggetto", "Nota", "Rimozione artefatti oculari",
                          "Scala in microvolt", "Velocita' del display", "Striscia del tempo", "Blocco iniziale",
                          "Avvia l'acquisizione", "Ferma", "Registra l'esame", "Nuova nota", "Cambia coppia di canali",
                          "Soglia degli artefatti", "Apri una registrazione", "Rivedi la registrazione",
                          "Analisi finale", "Stampa l'immagine", "Fine del programma"));
}

TEST(Keyboard, ALetterPressesAButtonWhoseCaptionHasNoMarkOfIt) {
  ShownWindows windows;
  int presses = 0;
  windows.mainModel.Starts1.setCaption("Start");  // as start-up does, after the view was created
  windows.mainModel.Starts1.onPressed = [&] { ++presses; };
  windows.mainView.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.mainView));
  QTest::keyClick(&windows.mainView, Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return presses == 1; }));
  const auto* button = windows.mainView.findChild<QAbstractButton*>("Avvia l'acquisizione");
  EXPECT_EQ(button->text(), "Start");
}

TEST(Keyboard, ALetterGivesATextBoxTheKeyboardUnlessItIsDisabled) {
  ShownWindows windows;
  windows.mainModel.noteBox.setEnabled(false);
  windows.mainView.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.mainView));
  QTest::keyClick(&windows.mainView, Qt::Key_G, Qt::AltModifier);
  EXPECT_EQ(windows.mainView.focusWidget()->objectName(), "Nome del soggetto");
  QTest::keyClick(&windows.mainView, Qt::Key_O, Qt::AltModifier);
  EXPECT_EQ(windows.mainView.focusWidget()->objectName(), "Nome del soggetto");
}

TEST(Keyboard, AHeldKeyPressesAButtonOnce) {
  ShownWindows windows;
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
  ShownWindows windows;
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
  ShownWindows windows;
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
  ShownWindows windows;
  auto* slider = windows.mainView.findChild<QSlider*>("Blocco iniziale");
  const std::pair<Qt::Key, int> cases[] = {{Qt::Key_PageDown, 10}, {Qt::Key_Down, 11}, {Qt::Key_Right, 12},
                                           {Qt::Key_Left, 11},     {Qt::Key_Up, 10},   {Qt::Key_PageUp, 0}};
  for (const auto& [key, block] : cases) {
    QTest::keyClick(slider, key);
    EXPECT_EQ(windows.mainModel.Slider1.value(), block);
  }
}

TEST(Keyboard, TheStripCountsItsBlocksFromOne) {
  ShownWindows windows;
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

}  // namespace
}  // namespace korvinel
