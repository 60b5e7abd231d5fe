#include "guidance/signal_history.h"

#include <algorithm>

#include "frame/main_fields.h"
#include "platform/platform.h"
#include "platform/timing.h"

namespace korvinel::guidance {

void SignalHistory::follow(const MainFields& record) {
  const bool arrived = record.decodedBlocks != blocksTaken_;
  blocksTaken_ = record.decodedBlocks;
  if (record.intervalSelectable == 1) return clear();
  const double seconds = record.host.clock.seconds();
  if (arrived) return add(signalQuality(record.decodedBlock), seconds);
  pass(seconds);
}

void SignalHistory::add(const SiteSignals& block, double seconds) {
  pass(seconds);
  for (std::size_t site = 0; site < sites_.size(); ++site) {
    sites_[site].now = block[site];
    push(sites_[site], block[site].state);
  }
  lastState_ = seconds;
  gatherNews();
}

void SignalHistory::pass(double seconds) {
  if (sites_.front().states.empty()) return;
  constexpr double turn = eeg::secondsPerBlock;
  lastState_ = std::max(lastState_, seconds - turn * static_cast<double>(blocksShown + 1));
  for (; seconds - lastState_ >= 2 * turn; lastState_ += turn)
    for (Site& site : sites_) {
      site.now = {SignalState::waiting, "in attesa: non arriva alcun segnale"};
      push(site, SignalState::waiting);
    }
}

void SignalHistory::clear() {
  const Site untouched;
  for (Site& site : sites_) site = untouched;
}

void SignalHistory::push(Site& site, SignalState state) {
  site.states.push_back(state);
  if (site.states.size() > blocksShown) site.states.pop_front();
}

void SignalHistory::gatherNews() {
  std::string news;
  for (int channel = 1; channel <= eeg::channelCount; ++channel) {
    Site& site = sites_.at(index(channel));
    const std::size_t count = site.states.size();
    if (count < 2 || site.states[count - 2] != site.states[count - 1] || site.states.back() == site.spoken) continue;
    site.spoken = site.states.back();
    news += (news.empty() ? "" : ", ") + std::string(eeg::siteOf(channel)) + " " + std::string(nameOf(site.spoken));
  }
  if (news.empty()) return;
  news_ = "Segnale: " + news;
  ++newsCount_;
}

std::string SignalHistory::summary(int channel) const {
  const States& states = lastMinute(channel);
  std::string text;
  for (int i = 0; i < signalStates; ++i) {
    const auto state = static_cast<SignalState>(i);
    const auto count = std::ranges::count(states, state);
    if (count == 0) continue;
    text += (text.empty() ? "nell'ultimo minuto: " : ", ") + std::to_string(count) +
            (count == 1 ? " volta " : " volte ") + std::string(nameOf(state));
  }
  return text;
}

}  // namespace korvinel::guidance
