#include "app/lamp_row.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvinel {
namespace {

using guidance::SignalState;
using testing::ElementsAre;

std::vector<std::string> spoken(const LampRow& row) {
  std::vector<std::string> all;
  for (const auto* lamp : row.findChildren<QWidget*>()) all.push_back(lamp->accessibleName().toStdString());
  return all;
}

TEST(LampRow, ShowsEachSiteInTheOrderOfTheChannels) {
  LampRow row;
  EXPECT_THAT(spoken(row), ElementsAre("F1: in attesa", "F2: in attesa", "T5: in attesa", "T6: in attesa"));
  guidance::SignalHistory history;
  history.add({{{SignalState::good, "buono"},
                {SignalState::flat, "piatto"},
                {SignalState::mains, "50 Hz"},
                {SignalState::movement, "movimento"}}},
              0);
  row.display(history);
  EXPECT_THAT(spoken(row), ElementsAre("F1: buono", "F2: piatto", "T5: 50 Hz", "T6: movimento"));
  history.clear();
  row.display(history);
  EXPECT_THAT(spoken(row), ElementsAre("F1: in attesa", "F2: in attesa", "T5: in attesa", "T6: in attesa"));
}

TEST(LampRow, HasAsItsNameWhatIsToBeSpokenOnceAStateHasLastedForTwoBlocks) {
  LampRow row;
  guidance::SignalHistory history;
  guidance::SiteSignals block;
  block.fill({SignalState::good, "buono"});
  std::vector<std::string> names;
  for (const SignalState state : {SignalState::flat, SignalState::good, SignalState::flat, SignalState::flat}) {
    block[2].state = state;
    history.add(block, 0);
    row.display(history);
    names.push_back(row.accessibleName().toStdString());
  }
  EXPECT_THAT(names, ElementsAre("Segnale", "Segnale", "Segnale", "Segnale: T5 piatto"));
}

}  // namespace
}  // namespace korvinel
