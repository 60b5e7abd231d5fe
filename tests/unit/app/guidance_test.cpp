#include "app/guidance.h"

#include <gtest/gtest.h>

#include <QTest>
#include <ctime>

#include "app/main_window_view.h"
#include "guidance/settings_file.h"
#include "headless_program.h"

namespace korvinel {
namespace {

/// The main window with its guidance on a machine without a screen.
struct GuidanceTest : testing::Test {
  GuidanceTest() {
    program.state.startUp();
    program.window.fileNameBox.type("prova");
    program.window.subjectBox.type("Rossi");
    guidance.refresh();
  }
  [[nodiscard]] std::string line() const { return view.findChild<StatusLine*>("Stato dell'esame")->shown().text; }

  HeadlessProgram program;
  MainWindowView view{program.window, [] { return true; }};
  korvinel::guidance::SettingsFile settings{""};
  Guidance guidance{program.state, program.host.edge, view, [](int) { return "/dev/ttyS7"; }, settings};
};

TEST_F(GuidanceTest, TheLineFollowsEveryOperation) {
  EXPECT_EQ(line(), "Pronto");
  program.window.Starts1.press();
  program.acquireBlocks(2);
  EXPECT_EQ(line(), "In ascolto, NON si registra · 0:06");
}

TEST_F(GuidanceTest, ARefusedCommandIsExplainedUntilTheNext) {
  program.window.Stopd1.press();
  EXPECT_EQ(line(), "Stop: non c'è nulla da fermare.");
  program.window.Canali.press();
  program.window.Registra.press();
  EXPECT_EQ(line(), "Registra: prima premere Start e guardare i segnali.");
}

TEST_F(GuidanceTest, WhileTheInstrumentIsAwaitedTheSecondsRun) {
  std::string awaited;
  program.host.time.after(2.5, [&] { QTest::qWait(600), awaited = line(); });
  program.window.Starts1.press();
  EXPECT_EQ(awaited, "Collegamento con COM2: ancora 2 s");
}

TEST_F(GuidanceTest, CostsNextToNothingATurn) {
  constexpr int turns = 500;
  constexpr double mostMs = 0.2;
  program.window.Starts1.press();
  const std::clock_t before = std::clock();
  for (int turn = 0; turn < turns; ++turn) {
    program.state.blockCount = turn % 199;
    guidance.refresh();
  }
  EXPECT_LT(1000.0 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / turns, mostMs);
}

TEST_F(GuidanceTest, TheCommandsThemselvesActAsWithoutIt) {
  program.window.Starts1.press();
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  program.window.Stopd1.press();
  EXPECT_EQ(program.state.stopRequested, 1);
}

}  // namespace
}  // namespace korvinel
