#include <gtest/gtest.h>

#include "headless_program.h"

namespace korvinel {
namespace {

using platform::Choice;
using Texts = std::vector<std::string>;

TEST(PrintScreen, AsksCapturesAndPrintsOnOnePage) {
  HeadlessProgram program;
  program.host.dialogs.choices.push_back(Choice::ok);
  program.window.Stampa.press();
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].text, "Accendere la stampante.  Viene stampata l'immagine attuale.");
  EXPECT_EQ(program.host.dialogs.shown[0].title, "Stampa Immagine");
  EXPECT_EQ(program.state.printPromptText, "Accendere la stampante.  Viene stampata l'immagine attuale.");
  EXPECT_EQ(program.host.printer.done, (Texts{"key 1", "print 10 3 190 145"}));
}

TEST(PrintScreen, TheScanCodeFollowsTheSystemsFamily) {
  const std::pair<int, const char*> cases[] = {{3, "key 0"}, {4, "key 0"}, {5, "key 1"}, {6, "key 1"}, {10, "key 1"}};
  for (const auto& [version, key] : cases) {
    HeadlessProgram program;
    program.host.printer.majorVersion = version;
    program.host.dialogs.choices.push_back(Choice::ok);
    program.window.Stampa.press();
    ASSERT_FALSE(program.host.printer.done.empty());
    EXPECT_EQ(program.host.printer.done[0], key) << version;
  }
}

TEST(PrintScreen, CancelClearsTheRequestAndPrintsNothing) {
  HeadlessProgram program;
  program.window.Stampa.press();
  EXPECT_TRUE(program.host.printer.done.empty());
  EXPECT_EQ(program.state.printRequested, 0);
}

TEST(PrintScreen, TheRequestStandsWhileThePromptIsOpen) {
  HeadlessProgram program;
  program.host.dialogs.whileOpen = [&] { EXPECT_EQ(program.state.printRequested, 1); };
  program.window.Stampa.press();
}

TEST(PrintScreen, AConfirmedPrintLeavesTheRequestStanding) {
  HeadlessProgram program;
  program.host.dialogs.choices = {Choice::ok, Choice::ok, Choice::cancel};
  program.window.Stampa.press();
  EXPECT_EQ(program.state.printRequested, 1);
  program.state.printScreen();  // as a replay does while the request is set
  EXPECT_EQ(program.state.printRequested, 1);
  program.state.printScreen();
  EXPECT_EQ(program.state.printRequested, 0);
  EXPECT_EQ(program.host.printer.done.size(), 4U);
}

TEST(PrintScreen, WaitsAFifthOfASecondBeforeTheCaptureWhileEventsGoOn) {
  HeadlessProgram program;
  program.host.dialogs.choices.push_back(Choice::ok);
  bool handled = false;
  program.host.time.after(0.1, [&] {
    handled = true;
    EXPECT_TRUE(program.host.printer.done.empty());
  });
  const double before = program.host.time.seconds();
  program.window.Stampa.press();
  EXPECT_TRUE(handled);
  EXPECT_EQ(program.state.timerMark, before);
  EXPECT_GE(program.host.time.seconds() - before, 0.2);
}

TEST(PrintScreen, LetsEventsInOnceBetweenTheKeyAndThePage) {
  HeadlessProgram program;
  program.host.dialogs.choices.push_back(Choice::ok);
  int steps = 0;
  program.host.time.onStep = [&] { steps += program.host.printer.done.size() == 1 ? 1 : 0; };
  program.window.Stampa.press();
  EXPECT_EQ(steps, 1);
  EXPECT_EQ(program.host.printer.done.size(), 2U);
}

}  // namespace
}  // namespace korvinel
