#include "platform/controls.h"

#include <gtest/gtest.h>

#include "values/code_page.h"

namespace korvinel::platform {
namespace {

TEST(Controls, TellTheirViewOfChangesAlone) {
  int changes = 0;
  Label label("Stato");
  label.onChanged = [&] { ++changes; };
  label.setText("a");
  label.setText("a");
  label.setInk(Colour::black);
  EXPECT_EQ(changes, 1);
  label.setInk(Colour::red);
  EXPECT_EQ(changes, 2);
}

TEST(Controls, WhatTheProgramSetsIsNoActOfTheUsers) {
  int acts = 0;
  CheckBox box("Scelta");
  Range range("Scala", 10, 200, 60);
  box.onClicked = range.onMoved = [&] { ++acts; };
  box.setChecked(true);
  range.setValue(70);
  EXPECT_EQ(acts, 0);
  box.click();
  range.moveTo(80);
  EXPECT_EQ(acts, 2);
  EXPECT_FALSE(box.checked());
  EXPECT_EQ(range.value(), 80);
}

TEST(TextBox, TakesWhatIsTypedOnlyWhileItIsEnabledAndNotReadOnly) {
  TextBox box("Nota", EntryKind::text, false);
  int keys = 0;
  box.onKey = [&](int) { ++keys; };
  box.type("a");
  box.pressKey(13);
  EXPECT_EQ(box.text(), "");
  EXPECT_EQ(keys, 0);
  box.setEnabled(true);
  box.type("occhi \"chiusi\"\n");
  box.pressKey(13);
  EXPECT_EQ(box.text(), cleanEntry("occhi \"chiusi\"\n", EntryKind::text));
  EXPECT_EQ(keys, 1);
  const std::string before = box.text();
  box.setReadOnly(true);
  box.type("b");
  EXPECT_EQ(box.text(), before);
  box.setText("of the program");
  EXPECT_EQ(box.text(), "of the program");
}

TEST(TextBox, CountsTheRequestsForTheKeyboard) {
  TextBox box("Nota", EntryKind::text);
  int asked = 0;
  box.requestFocus();
  box.onFocusRequested = [&] { ++asked; };
  box.requestFocus();
  EXPECT_EQ(box.focusRequests(), 2);
  EXPECT_EQ(asked, 1);
}

TEST(Range, PullsEveryValueIntoItsRange) {
  Range range("Scala", 10, 200, 60);
  for (const auto& [asked, value] : {std::pair(9, 10), std::pair(10, 10), std::pair(200, 200), std::pair(201, 200)}) {
    range.moveTo(asked);
    EXPECT_EQ(range.value(), value) << asked;
    range.setValue(60);
    range.setValue(asked);
    EXPECT_EQ(range.value(), value) << asked;
  }
}

}  // namespace
}  // namespace korvinel::platform
