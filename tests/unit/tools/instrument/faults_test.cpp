#include "instrument/faults.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace korvinel::instrument {
namespace {

Faults faultsOf(std::initializer_list<std::string_view> texts) {
  Faults faults;
  for (const auto text : texts) addFault(faults, text);
  return faults;
}

std::string refusalOf(std::string_view text) {
  Faults faults;
  try {
    addFault(faults, text);
  } catch (const std::invalid_argument& refusal) {
    return refusal.what();
  }
  return "";
}

using Numbers = std::vector<std::int64_t>;

TEST(AddFault, SetsTheFaultItNames) {
  EXPECT_TRUE(faultsOf({"no-answer"}).noAnswer);
  EXPECT_EQ(faultsOf({"wrong-answer"}).wrongAnswer, "NO");
  EXPECT_EQ(faultsOf({"wrong-answer=ok"}).wrongAnswer, "ok");
  EXPECT_TRUE(faultsOf({"split-answer"}).splitAnswer);
  EXPECT_TRUE(faultsOf({"repeat-answer"}).repeatAnswer);
  EXPECT_EQ(faultsOf({"late-answer=1500"}).lateAnswerMs, 1500);
  EXPECT_TRUE(faultsOf({"test-keeps-streaming"}).testKeepsStreaming);
  EXPECT_EQ(faultsOf({"ignore-start=2"}).ignoredStarts, 2);
  EXPECT_TRUE(faultsOf({"ignore-stop"}).ignoreStop);
  EXPECT_TRUE(faultsOf({"flood"}).flood);
  EXPECT_TRUE(faultsOf({"cut-frames"}).cutFrames);
  EXPECT_EQ(faultsOf({"silent-after=0"}).silentAfterBlocks, Numbers{0});
  EXPECT_EQ(faultsOf({"hang-up-after=3"}).hangUpAfterBlocks, Numbers{3});
  EXPECT_EQ(faultsOf({"flip-byte=7"}).flippedBytes, Numbers{7});
}

TEST(AddFault, CollectsSeveralOfAKind) {
  const Faults faults = faultsOf({"lose-byte=5", "double-byte=9", "lose-byte=1", "no-answer"});
  EXPECT_EQ(faults.lostBytes, (Numbers{5, 1}));
  EXPECT_EQ(faults.doubledBytes, Numbers{9});
  EXPECT_TRUE(faults.noAnswer);
}

TEST(AddFault, RefusesAnUnknownFaultAndListsTheKnownOnes) {
  EXPECT_NE(refusalOf("smoke").find("unknown fault 'smoke'; the faults are no-answer,"), std::string::npos);
  EXPECT_NE(refusalOf("").find("unknown fault"), std::string::npos);
}

TEST(AddFault, RefusesAMissingOrUnwantedValue) {
  EXPECT_EQ(refusalOf("lose-byte"), "the fault 'lose-byte' needs a value: NAME=VALUE");
  EXPECT_EQ(refusalOf("no-answer=1"), "the fault 'no-answer' takes no value");
}

TEST(AddFault, RefusesValuesThatAreNoNumberInRange) {
  for (const auto* text :
       {"lose-byte=0", "lose-byte=-1", "lose-byte=1.5", "lose-byte=", "lose-byte=4x", "flip-byte= 4", "silent-after=-1",
        "late-answer=3600001", "ignore-start=99999999999999999999", "wrong-answer="})
    EXPECT_NE(refusalOf(text), "") << text;
}

TEST(OnTheWire, LosesDoublesAndFlipsOnlyTheNumberedBytes) {
  const Faults faults = faultsOf({"lose-byte=2", "double-byte=3", "flip-byte=4", "flip-byte=5", "double-byte=5"});
  std::string wire;
  for (std::int64_t number = 1; number <= 6; ++number)
    wire += onTheWire(faults, number, static_cast<char>('@' + number));
  EXPECT_EQ(wire,
            "ACC\xBB\xBA\xBA"
            "F");
}

}  // namespace
}  // namespace korvinel::instrument
