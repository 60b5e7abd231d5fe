#include "guidance/at_hand.h"

#include <gtest/gtest.h>

#include "opened_file.h"

namespace korvinel::guidance {
namespace {

TEST(AtHand, FollowsALiveExaminationFromStartToItsEnd) {
  HeadlessProgram program;
  program.state.startUp();
  EXPECT_EQ(atHand(program.state), AtHand::nothing);
  AtHand inHandshake{};
  program.host.time.when([&] { return program.state.linkPending == 1; }, [&] { inHandshake = atHand(program.state); });
  program.startAcquisition("prova", "Rossi");
  EXPECT_EQ(inHandshake, AtHand::linking);
  EXPECT_EQ(atHand(program.state), AtHand::live);
  EXPECT_EQ(nameOf(program.state), "Rossi");  // no file of that name is being made
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.acquireBlocks(1);
  EXPECT_EQ(nameOf(program.state), "Rossi, prova.QVD");
  program.window.Stopd1.press();
  EXPECT_EQ(atHand(program.state), AtHand::live);  // its last turn is still to come
  program.host.time.runFor(6);
  EXPECT_EQ(atHand(program.state), AtHand::finished);
  EXPECT_EQ(nameOf(program.state), "Rossi, prova.QVD");
}

TEST(AtHand, AFileIsAtHandFromItsChoiceUntilAnotherIsAskedFor) {
  FileProgram program;
  program.host.time.when([&] { return program.state.blockCount == 3; },
                         [&] { EXPECT_EQ(atHand(program.state), AtHand::opened); });
  program.open();
  EXPECT_EQ(atHand(program.state), AtHand::opened);
  EXPECT_EQ(nameOf(program.state), "Rossi, esame.QVD");
  program.host.dialogs.whileOpen = [&] { EXPECT_EQ(atHand(program.state), AtHand::nothing); };
  program.host.dialogs.files.clear();
  program.window.Openx.press();
  EXPECT_EQ(atHand(program.state), AtHand::nothing);
  EXPECT_EQ(nameOf(program.state), "");
}

TEST(AtHand, ARefusedStartLeavesNothing) {
  HeadlessProgram program;
  program.startAcquisition("prova", "Rossi");
  program.acquireBlocks(1);
  program.window.Stopd1.press();
  program.host.time.runFor(6);
  program.window.subjectBox.type("");
  program.window.Starts1.press();
  EXPECT_EQ(atHand(program.state), AtHand::nothing);
}

TEST(AtHand, GraphsBelongToAnExaminationThatHasBegun) {
  EXPECT_FALSE(hasGraphs(AtHand::nothing));
  EXPECT_FALSE(hasGraphs(AtHand::linking));
  for (const AtHand now : {AtHand::live, AtHand::finished, AtHand::opened}) EXPECT_TRUE(hasGraphs(now));
}

}  // namespace
}  // namespace korvinel::guidance
