#include "platform/qt/control_views.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>
#include <memory>

namespace korvinel::platform {
namespace {

/// Declared after the models in each test, because they must outlive their views.
struct Window : QWidget {
  Window() {
    QFont letters = font();
    letters.setPixelSize(13);
    setFont(letters);
    resize(400, 300);
  }
};

TEST(ControlViews, ALabelShowsItsLinesAndIsDescribedByItsRole) {
  Label model("Stato");
  Window window;
  const LabelView view(model, &window);
  model.setText("  Disturbo\r1=basso  ");
  EXPECT_EQ(view.text(), "  Disturbo\n1=basso  ");
  EXPECT_EQ(view.accessibleDescription(), "Stato");
  EXPECT_EQ(view.accessibleName(), "");
}

TEST(ControlViews, ALabelTooLongForItsPlaceSaysItAllInATip) {
  Label model("Stato");
  Window window;
  LabelView view(model, &window);
  view.resize(100, 20);
  model.setText("Registrazione");
  view.grab();
  EXPECT_EQ(view.toolTip(), "");
  model.setText("Operazione interrotta: Disco pieno: C:\\QUARVEL5\\DATAFILE\\Tempor1.XXX");
  view.grab();
  EXPECT_EQ(view.toolTip(), view.text());
}

constexpr auto longFault =
    "Operazione interrotta: Il calcolo non è possibile: il segnale è piatto o l'intervallo è vuoto. (Divisione per "
    "zero: l'intervallo non ha blocchi)";

TEST(ControlViews, AFaultIsShownWholeInBrokenLines) {
  Label model("Stato");
  Window window;
  LabelView view(model, &window, LabelView::Lines::broken);
  view.resize(258, 52);
  model.setText(longFault);
  view.grab();
  EXPECT_EQ(view.toolTip(), "") << "nothing is left out";
  EXPECT_EQ(view.text(), longFault) << "for a screen reader";
}

TEST(ControlViews, BrokenLinesThatAreTooManyEndInATip) {
  Label model("Stato");
  Window window;
  LabelView view(model, &window, LabelView::Lines::broken);
  view.resize(258, 30);
  model.setText(longFault);
  view.grab();
  EXPECT_EQ(view.toolTip().replace('\n', ' '), longFault);
  EXPECT_EQ(view.text(), longFault);
}

/// Whether a colour occurs in the picture.
bool holds(const QImage& picture, QRgb colour) {
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixel(x, y) == colour) return true;
  return false;
}

TEST(ControlViews, AShortTextStandsAtTheFootOfALabelWithBrokenLines) {
  Label model("Stato");
  Window window;
  LabelView view(model, &window, LabelView::Lines::broken);
  view.resize(258, 52);
  model.setText("Registrazione");
  model.setInk(Colour::lightRed);
  const QRgb red = qRgb(255, 0, 0);
  const QImage picture = view.grab().toImage();
  EXPECT_FALSE(holds(picture.copy(0, 0, 258, 30), red));
  EXPECT_TRUE(holds(picture.copy(0, 30, 258, 22), red));
}

TEST(ControlViews, ALabelsInkThatCannotBeReadOnThePanelStandsOnACell) {
  Label model("Stato");
  Window window;
  window.setPalette(QPalette(QColor(236, 239, 241)));
  LabelView view(model, &window);
  view.resize(100, 20);
  model.setText("III");
  model.setInk(Colour::yellow);
  EXPECT_TRUE(holds(view.grab().toImage(), qRgb(0, 0, 0)));
  model.setInk(Colour::lightRed);
  const QImage readable = view.grab().toImage();
  EXPECT_FALSE(holds(readable, qRgb(0, 0, 0)));
  EXPECT_FALSE(holds(readable, qRgb(255, 255, 255)));
}

TEST(ControlViews, AButtonIsPressedAndShowsCaptionAndColour) {
  Button model("Registra l'esame");
  Window window;
  int presses = 0;
  model.onPressed = [&] { ++presses; };
  ButtonView view(model, &window);
  model.setCaption("Registra");
  view.click();
  EXPECT_EQ(presses, 1);
  EXPECT_EQ(view.text(), "Registra");
  EXPECT_EQ(view.accessibleDescription(), "Registra l'esame");
}

TEST(ControlViews, AColouredButtonsCaptionCanBeRead) {
  Button model("Registra");
  Window window;
  ButtonView view(model, &window);
  const QColor usual = view.palette().color(QPalette::Button);
  const std::pair<Colour, QColor> cases[] = {
      {Colour::yellow, Qt::black}, {Colour::blue, Qt::white}, {Colour::lightRed, Qt::black}};
  for (const auto& [colour, ink] : cases) {
    model.setBackColour(colour);
    EXPECT_EQ(view.palette().color(QPalette::ButtonText), ink);
  }
  EXPECT_EQ(view.palette().color(QPalette::Button), QColor(255, 0, 0));
  model.setBackColour(Colour::buttonFace);
  EXPECT_EQ(view.palette().color(QPalette::Button), usual);
}

TEST(ControlViews, AWideCaptionIsSetSmaller) {
  Button model("Registra");
  Window window;
  ButtonView view(model, &window);
  view.resize(90, 30);
  model.setCaption("Stop");
  EXPECT_EQ(view.font().pixelSize(), 13);
  model.setCaption("Registrazione");
  EXPECT_LT(view.font().pixelSize(), 13);
}

TEST(ControlViews, TypingReachesTheModel) {
  TextBox model("Nome del file", EntryKind::fileName);
  Window window;
  QLineEdit* box = makeView(model, &window);
  QTest::keyClicks(box, "prova");
  EXPECT_EQ(model.text(), "prova");
  EXPECT_EQ(box->accessibleName(), "Nome del file");
}

TEST(ControlViews, TheProgramsTextReachesTheBox) {
  TextBox model("Nota", EntryKind::text, false);
  Window window;
  const QLineEdit* box = makeView(model, &window);
  EXPECT_FALSE(box->isEnabled());
  model.setText("occhi chiusi");
  model.setEnabled(true);
  EXPECT_EQ(box->text(), "occhi chiusi");
  EXPECT_TRUE(box->isEnabled());
}

TEST(ControlViews, WhatTheFilesCannotHoldDisappearsFromTheBoxAndTheCursorStays) {
  TextBox model("Soggetto", EntryKind::text);
  Window window;
  QLineEdit* box = makeView(model, &window);
  QTest::keyClicks(box, "Rossi");
  box->setCursorPosition(2);
  QTest::keyClicks(box, ",\"x");
  EXPECT_EQ(box->text(), "Roxssi");
  EXPECT_EQ(model.text(), "Roxssi");
  EXPECT_EQ(box->cursorPosition(), 3);
}

TEST(ControlViews, APastedTextIsCleanedToo) {
  TextBox model("Nome del file", EntryKind::fileName);
  Window window;
  QLineEdit* box = makeView(model, &window);
  box->insert("a/b\nc\u010d:d");
  EXPECT_EQ(box->text(), "abcd");
  EXPECT_EQ(model.text(), "abcd");
}

TEST(ControlViews, AReadOnlyBoxTakesNothingLooksSoAndCanBeRead) {
  TextBox model("Nome del file", EntryKind::fileName);
  Window window;
  QLineEdit* box = makeView(model, &window);
  QTest::keyClicks(box, "prova");
  const QPalette usual = box->palette();
  model.setReadOnly(true);
  QTest::keyClicks(box, "x");
  box->setText("y");
  EXPECT_EQ(box->text(), "prova");
  EXPECT_EQ(model.text(), "prova");
  EXPECT_TRUE(box->isEnabled());
  EXPECT_NE(box->palette().color(QPalette::Base), usual.color(QPalette::Base));
  EXPECT_EQ(box->palette().color(QPalette::Text), QColor(Qt::black));
  model.setReadOnly(false);
  QTest::keyClicks(box, "x");
  EXPECT_EQ(model.text(), "provax");
  EXPECT_EQ(box->palette().color(QPalette::Base), usual.color(QPalette::Base));
}

TEST(ControlViews, AnAccentApartFromItsLetterIsJoinedToIt) {
  TextBox model("Soggetto", EntryKind::text);
  Window window;
  QLineEdit* box = makeView(model, &window);
  box->insert("Nicolo\u0300 Rossi");
  EXPECT_EQ(model.text(), "Nicol\u00F2 Rossi");
  EXPECT_EQ(box->text(), "Nicol\u00F2 Rossi");
}

TEST(ControlViews, EnterIsTheKey13) {
  TextBox model("Nota", EntryKind::text);
  Window window;
  std::vector<int> keys;
  model.onKey = [&](int key) { keys.push_back(key); };
  QTest::keyClick(makeView(model, &window), Qt::Key_Return);
  EXPECT_EQ(keys, std::vector<int>{13});
}

TEST(ControlViews, ABoxThatAsksForTheKeyboardGetsIt) {
  TextBox first("a", EntryKind::text), second("b", EntryKind::text);
  Window window;
  makeView(first, &window);
  const QLineEdit* box = makeView(second, &window);
  window.show();
  second.requestFocus();
  EXPECT_EQ(window.focusWidget(), box);
}

TEST(ControlViews, ANoteBoxInYellowCanBeRead) {
  TextBox model("Nota", EntryKind::text);
  Window window;
  const QLineEdit* box = makeView(model, &window);
  model.setBackColour(Colour::yellow);
  EXPECT_EQ(box->palette().color(QPalette::Base), QColor(255, 255, 0));
  EXPECT_EQ(box->palette().color(QPalette::Text), QColor(Qt::black));
}

TEST(ControlViews, ACheckBoxAndItsModelTickTogether) {
  CheckBox model("Rimozione");
  Window window;
  int clicks = 0;
  model.onClicked = [&] { ++clicks; };
  QCheckBox* box = makeView(model, &window);
  box->click();
  EXPECT_TRUE(model.checked());
  EXPECT_EQ(clicks, 1);
  model.setChecked(false);
  EXPECT_FALSE(box->isChecked());
  EXPECT_EQ(clicks, 1);
}

TEST(ControlViews, ACheckBoxThatIsSwitchedWithoutAClickTellsItsModelOnce) {
  CheckBox model("scelta");
  int clicks = 0;
  model.onClicked = [&] { ++clicks; };
  const std::unique_ptr<QCheckBox> box(makeView(model, nullptr));
  box->toggle();  // as a screen reader does
  EXPECT_TRUE(model.checked());
  model.setChecked(false);
  EXPECT_FALSE(box->isChecked());
  EXPECT_EQ(clicks, 1);
}

TEST(ControlViews, AScaleTellsTheUsersMovesOnly) {
  Range model("Scala", 10, 200, 60);
  std::vector<int> told;
  model.onMoved = [&] { told.push_back(model.value()); };
  QScrollBar bar;
  tie(model, bar);
  EXPECT_EQ(bar.value(), 60);
  model.setValue(90);
  EXPECT_EQ(bar.value(), 90);
  bar.setValue(500);
  EXPECT_EQ(model.value(), 200);
  EXPECT_EQ(told, std::vector<int>{200});
}

TEST(ControlViews, APictureGoesWithItsModel) {
  Picture model("Elettrodi");
  Window window;
  QWidget picture(&window);
  tie(model, picture);
  EXPECT_FALSE(picture.isHidden());
  model.setVisible(false);
  EXPECT_TRUE(picture.isHidden());
}

TEST(ControlViews, AModelOutlivesItsView) {
  Label label("a");
  TextBox box("b", EntryKind::text);
  {
    QWidget gone;
    new LabelView(label, &gone);
    makeView(box, &gone);
  }
  label.setText("still there");
  box.setText("still there");
  box.requestFocus();
  EXPECT_EQ(label.text(), "still there");
}

}  // namespace
}  // namespace korvinel::platform
