#include "app/sounds.h"

#include <gmock/gmock.h>

#include <QTest>

namespace korvinel {
namespace {

using guidance::Cue;
using testing::ElementsAre;

struct SoundsTest : testing::Test {
  /// The number of sounds until it has been quiet for longer than between two of them.
  int heardAfter(Cue cue) {
    heard = 0;
    sounds.give(cue);
    for (int before = -1; before != heard;) {
      before = heard;
      QTest::qWait(600);
    }
    return heard;
  }

  int heard = 0;
  std::vector<bool> choices;
  bool spoken = false;
  Sounds sounds{true, [this](bool on) { choices.push_back(on); }, [this] { ++heard; }, [this] { return spoken; }};
};

TEST_F(SoundsTest, EachCueHasItsNumberOfSounds) {
  EXPECT_EQ(heardAfter(Cue::none), 0);
  EXPECT_EQ(heardAfter(Cue::enoughData), 1);
  EXPECT_EQ(heardAfter(Cue::ended), 2);
  EXPECT_EQ(heardAfter(Cue::linkLost), 3);
}

TEST_F(SoundsTest, SwitchedOffItIsSilentAndTheChoiceIsReported) {
  sounds.click();
  EXPECT_EQ(heardAfter(Cue::linkLost), 0);
  sounds.click();
  EXPECT_EQ(heardAfter(Cue::enoughData), 1);
  EXPECT_THAT(choices, ElementsAre(false, true));
}

TEST_F(SoundsTest, ItBeginsAsItWasLeft) {
  Sounds off(
      false, [](bool) {}, [this] { ++heard; });
  off.give(Cue::ended);
  EXPECT_FALSE(off.isChecked());
  EXPECT_EQ(heard, 0);
}

TEST_F(SoundsTest, SilentWhileAScreenReaderSpeaks) {
  spoken = true;
  EXPECT_EQ(heardAfter(Cue::linkLost), 0);
}

}  // namespace
}  // namespace korvinel
