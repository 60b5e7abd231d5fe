#pragma once

#include <array>
#include <deque>
#include <string>

#include "guidance/signal_quality.h"

namespace korvinel {
struct MainFields;
}

namespace korvinel::guidance {

/// The signal of each site over the last minute, one state a block; while no block arrives, one `waiting` a turn.
class SignalHistory {
 public:
  static constexpr std::size_t blocksShown = 20;  ///< a minute, of turns of three seconds

  using States = std::deque<SignalState>;  ///< at most 20, oldest first

  /// Takes the block that has been decoded since the last call, if any; forgets everything once nothing is acquired.
  void follow(const MainFields& record);

  void add(const SiteSignals& block, double seconds);  ///< `seconds`: the time of the clock
  void pass(double seconds);                           ///< time goes on; two turns without a block make a gap
  void clear();

  [[nodiscard]] const SiteSignal& now(int channel) const { return sites_.at(index(channel)).now; }
  [[nodiscard]] const States& lastMinute(int channel) const { return sites_.at(index(channel)).states; }
  /// "nell'ultimo minuto: 14 volte buono, 1 volta saturo"; "" without blocks.
  [[nodiscard]] std::string summary(int channel) const;

  /// To be spoken: the sites whose state has lasted for two blocks and differs from what was spoken before; a good
  /// signal is not news unless something else was.
  [[nodiscard]] const std::string& news() const { return news_; }
  [[nodiscard]] int newsCount() const { return newsCount_; }  ///< changes with every new text

 private:
  struct Site {
    SiteSignal now;
    States states;
    SignalState spoken = SignalState::good;
  };

  static std::size_t index(int channel) { return static_cast<std::size_t>(channel) - 1; }
  void push(Site& site, SignalState state);
  void gatherNews();

  std::array<Site, eeg::channelCount> sites_;
  double lastState_ = 0;  // seconds
  int blocksTaken_ = 0;
  std::string news_;
  int newsCount_ = 0;
};

}  // namespace korvinel::guidance
