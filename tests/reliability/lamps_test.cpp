#include <gtest/gtest.h>

#include <functional>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "campaign.h"
#include "guidance/signal_quality.h"
#include "instrument/signal_model.h"
#include "spoilt_signal.h"

/// The lamps on real EEG, clean and spoilt, and on every model of the simulated instrument (docs/signal-quality.md).
namespace korvinel {
namespace {

using guidance::ChannelSamples;
using guidance::SignalState;
using guidance::siteSignal;
using real_eeg::Channel;
using spoilt::Stretch;

constexpr std::size_t block = 256;
constexpr std::size_t turn = 384;  // a block of two seconds, then a second that is not read

SignalState stateAt(const Channel& channel, std::size_t first) {
  return siteSignal(ChannelSamples(channel.data() + first, block)).state;
}

struct Count {
  int right = 0, all = 0;
  void add(bool isRight) {
    ++all;
    right += isRight ? 1 : 0;
  }
  [[nodiscard]] double percent() const { return 100.0 * right / std::max(1, all); }
};

/// One row: F1, F2, T5, T6 and all.
using Row = std::array<Count, 4>;

Count sum(const Row& row) {
  Count whole;
  for (const Count& site : row) {
    whole.right += site.right;
    whole.all += site.all;
  }
  return whole;
}

void print(const std::string& name, const Row& row) {
  std::ostringstream line;
  line << "| " << name;
  for (const Count& site : row) line << std::fixed << std::setprecision(1) << " | " << site.percent();
  const Count whole = sum(row);
  line << " | " << whole.percent() << " | " << whole.all << " |";
  std::cout << line.str() << "\n";
}

/// Disturbances that are in the recordings themselves, in seconds.
struct Known {
  const char* recording;
  std::size_t site;
  double from, to;
};
constexpr Known known[] = {{"mm001-open", 0, 24, 26},
                           {"mm001-open", 0, 38, 42},
                           {"mm001-open", 1, 24, 26},
                           {"mm001-open", 1, 38, 42},
                           {"mm004-open", 2, 50, 51.3}};

bool isDisturbed(const std::string& recording, std::size_t site, std::size_t first) {
  const double from = static_cast<double>(first) / 128;
  return std::ranges::any_of(known, [&](const Known& each) {
    return each.recording == recording && each.site == site && from < each.to && from + 2 > each.from;
  });
}

TEST(Lamps, CleanBlocksOfRealEegAreSeldomBlamed) {
  Row blamed, anywhere;
  for (const auto& recording : real_eeg::allRecordings()) {
    Row own;
    for (std::size_t site = 0; site < 4; ++site) {
      const Channel& channel = recording.channels.at(site);
      for (std::size_t first = 0; first + block <= channel.size(); first += block) {
        const bool isBlamed = stateAt(channel, first) != SignalState::good;
        own.at(site).add(isBlamed);
        anywhere.at(site).add(isBlamed);
        if (!isDisturbed(recording.name, site, first)) blamed.at(site).add(isBlamed);
      }
    }
    print("`" + recording.name + "`", own);
  }
  print("all blocks", anywhere);
  print("clean blocks", blamed);
  for (const Count& site : blamed) EXPECT_LE(site.percent(), 2);
  EXPECT_GT(sum(blamed).all, 1000);
}

/// Stretches of 2 s and more, anywhere in the turns; noticed within the two blocks that they first touch.
Row noticed(const std::function<Channel(const Channel&, const Stretch&, spoilt::Dice&)>& spoil,
            const std::function<bool(SignalState)>& isRight) {
  Row row;
  spoilt::Dice dice(17);
  for (const auto& recording : real_eeg::allRecordings())
    for (std::size_t site = 0; site < 4; ++site)
      for (int i = 0; i < 25; ++i) {
        const Channel& channel = recording.channels.at(site);
        constexpr std::array<std::size_t, 4> lengths{256, 256, 320, 640};
        const std::size_t length = lengths.at(static_cast<std::size_t>(dice.below(4)));
        const auto room = static_cast<int>(channel.size() - length - 2 * turn);
        const Stretch stretch{turn + static_cast<std::size_t>(dice.below(room)), length};
        const Channel spoilt = spoil(channel, stretch, dice);
        bool seen = false;
        int touched = 0;
        for (std::size_t first = 0; first + block <= spoilt.size() && touched < 2; first += turn) {
          if (first + block <= stretch.first || first >= stretch.first + length) continue;
          ++touched;
          seen = seen || isRight(stateAt(spoilt, first));
        }
        row.at(site).add(seen);
      }
  return row;
}

struct Fault {
  const char* name;
  std::function<Channel(const Channel&, const Stretch&, spoilt::Dice&)> spoil;
  SignalState right, alsoRight;
  double least;  // percent; 0: only told
};

std::vector<Fault> faults() {
  using namespace std::placeholders;
  constexpr auto flat = SignalState::flat, saturated = SignalState::saturated, mains = SignalState::mains,
                 movement = SignalState::movement;
  return {
      {"flat", spoilt::flat, flat, flat, 95},
      {"saturated: swings", spoilt::swinging, saturated, saturated, 95},
      {"saturated: amplified", spoilt::amplified, saturated, saturated, 95},
      {"saturated: stuck", spoilt::stuck, saturated, saturated, 95},
      {"hum of 10 microvolts", [](auto& c, auto& s, auto& d) { return spoilt::humming(c, s, d, 10); }, mains, mains, 0},
      {"hum of 20 microvolts", [](auto& c, auto& s, auto& d) { return spoilt::humming(c, s, d, 20); }, mains, mains,
       95},
      {"hum of 40 microvolts", [](auto& c, auto& s, auto& d) { return spoilt::humming(c, s, d, 40); }, mains, mains,
       95},
      {"loose: jumps of 60", [](auto& c, auto& s, auto& d) { return spoilt::loose(c, s, d, 60); }, movement, saturated,
       0},
      {"loose: jumps of 100", [](auto& c, auto& s, auto& d) { return spoilt::loose(c, s, d, 100); }, movement,
       saturated, 95},
      {"loose: soft jumps of 100", [](auto& c, auto& s, auto& d) { return spoilt::loose(c, s, d, 100, true); },
       movement, saturated, 0},
      {"loose: jumps of 150", [](auto& c, auto& s, auto& d) { return spoilt::loose(c, s, d, 150); }, movement,
       saturated, 95}};
}

TEST(Lamps, FaultsAreNoticedWithinTwoBlocks) {
  for (const Fault& fault : faults()) {
    const Row row =
        noticed(fault.spoil, [&](SignalState state) { return state == fault.right || state == fault.alsoRight; });
    print(fault.name, row);
    for (const Count& site : row) EXPECT_GE(site.percent(), fault.least) << fault.name;
  }
}

/// The simulated instrument's models, by what their lamps show.
TEST(Lamps, EveryModelOfTheSimulatedInstrumentHasItsLamp) {
  struct Case {
    const char* model;
    SignalState state;
  };
  constexpr Case cases[] = {{"eyes-closed", SignalState::good}, {"eyes-open", SignalState::good},
                            {"blinks", SignalState::good},      {"drowsy", SignalState::good},
                            {"mains-hum", SignalState::mains},  {"saturated", SignalState::saturated},
                            {"flat", SignalState::flat}};
  for (const auto& [model, state] : cases) {
    instrument::SignalModel source(instrument::parseModels(model), 1);
    std::array<Channel, 4> channels;
    const auto turns = static_cast<std::size_t>(campaign::size(40, 199));
    for (std::size_t i = 0; i < turns * turn; ++i) {
      const instrument::Frame frame = source.nextFrame();
      for (std::size_t site = 0; site < 4; ++site) channels.at(site).push_back(static_cast<float>(frame.at(site)));
    }
    Row row;
    for (std::size_t site = 0; site < 4; ++site)
      for (std::size_t first = 0; first < channels.at(site).size(); first += turn)
        row.at(site).add(stateAt(channels.at(site), first) == state);
    print("`" + std::string(model) + "`: `" + std::string(guidance::nameOf(state)) + "`", row);
    for (const Count& site : row) EXPECT_GE(site.percent(), 98) << model;
  }
}

}  // namespace
}  // namespace korvinel
