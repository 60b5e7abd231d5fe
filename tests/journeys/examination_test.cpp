#include <gtest/gtest.h>

#include "headless_program.h"

namespace korvinel {
namespace {

TEST(Examination, FiveBlocksThenStopShowsTheTotalAndTheNotice) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(5);
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  EXPECT_TRUE(program.window.firstTrace.shows("Fine della registrazione!"));
  // The last turn has counted its block.
  EXPECT_EQ(program.window.blockLabel.text(), "Totale= 18s");
  ASSERT_FALSE(program.host.dialogs.shown.empty());
  EXPECT_EQ(program.host.dialogs.shown.back().text,
            "Attenzione: per una Analisi affidabile \roccorrono almeno 7 minuti di dati eeg!\r"
            "Per analisi finale, premere Analisi");
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(Examination, EndsByItselfAtThe200thTurn) {
  HeadlessProgram program;
  program.startAcquisition();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  EXPECT_EQ(program.state.blockCount, 200);
  EXPECT_EQ(program.shared.analysisLastBlock, 200);
  // The 200th block was never read: it is still in the receive buffer.
  EXPECT_EQ(program.host.instrument.blocksDelivered, 200);
  EXPECT_EQ(program.host.serialPort.waiting(), 1024);
  EXPECT_EQ(program.window.blockLabel.text(), "Totale= 600s");
}

}  // namespace
}  // namespace korvinel
