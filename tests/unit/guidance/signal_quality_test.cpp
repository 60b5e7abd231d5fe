#include "guidance/signal_quality.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "signals.h"

namespace korvinel::guidance {
namespace {

/// A channel as the instrument sends it: rounded and clamped.
SiteSignal signalOf(const std::function<double(int)>& microvolts) {
  std::array<float, 256> samples{};
  for (int s = 1; s <= 256; ++s)
    samples.at(static_cast<std::size_t>(s - 1)) =
        static_cast<float>(std::fmin(255, std::fmax(0, std::round(128 + microvolts(s)))));
  return siteSignal(ChannelSamples(samples));
}

double eeg(int sample) {
  return sineAt(sample, 20, 25) + sineAt(sample, 13, 8, 1) + sineAt(sample, 45, 5, 2) + sineAt(sample, 3, 10);
}

double blink(int sample, int first, double height, int length = 38) {
  if (sample < first || sample >= first + length) return 0;
  const double sine = std::sin(std::numbers::pi * (sample - first) / length);
  return height * sine * sine;
}

TEST(SiteSignal, OfACalmPersonIsGood) {
  EXPECT_EQ(signalOf(eeg).state, SignalState::good);
  EXPECT_EQ(signalOf(eeg).reason, "buono: nessun disturbo evidente");
  EXPECT_EQ(signalOf([](int s) { return eeg(s) / 8; }).state, SignalState::good);
  EXPECT_EQ(signalOf([](int s) { return 2.5 * eeg(s); }).state, SignalState::good);
}

TEST(SiteSignal, OfABlinkOrTwoIsStillGood) {
  EXPECT_EQ(signalOf([](int s) { return eeg(s) + blink(s, 100, 120); }).state, SignalState::good);
  EXPECT_EQ(signalOf([](int s) { return eeg(s) + blink(s, 100, 150); }).state, SignalState::good);
  EXPECT_EQ(signalOf([](int s) { return eeg(s) + blink(s, 20, 130) + blink(s, 150, 130); }).state, SignalState::good);
}

TEST(SiteSignal, IsFlatWhenItStandsStill) {
  EXPECT_EQ(signalOf([](int) { return 0; }).reason, "piatto: fermo per 2,0 s");
  EXPECT_EQ(signalOf([](int) { return -60; }).state, SignalState::flat);
  EXPECT_EQ(signalOf([](int s) { return 2.0 * (s * 7 % 3 - 1); }).state, SignalState::flat);
}

TEST(SiteSignal, IsFlatFromThreeEighthsOfASecondOn) {
  // Before the stretch each sample is 10 from the next.
  const auto stillFor = [](int samples) {
    return signalOf([samples](int s) { return s > 256 - samples ? 0 : 20 + 10 * (s % 2); });
  };
  EXPECT_EQ(stillFor(48).reason, "piatto: fermo per 0,4 s");
  EXPECT_NE(stillFor(47).state, SignalState::flat);
}

TEST(SiteSignal, IsSaturatedFromEightHundredthsOfTheSamplesOn) {
  const auto atLimit = [](int samples) { return signalOf([samples](int s) { return s <= samples ? 130 : eeg(s); }); };
  EXPECT_EQ(atLimit(21).reason, "saturo: 8 % dei campioni al limite della scala");
  EXPECT_NE(atLimit(20).state, SignalState::saturated);
  EXPECT_EQ(atLimit(79).reason, "saturo: 31 % dei campioni al limite della scala");
}

TEST(SiteSignal, StuckAtTheEndOfTheScaleIsSaturatedAndNotFlat) {
  EXPECT_EQ(signalOf([](int) { return 500; }).state, SignalState::saturated);
  EXPECT_EQ(signalOf([](int) { return -500; }).reason, "saturo: 100 % dei campioni al limite della scala");
}

TEST(SiteSignal, HumsFromSevenAndAHalfMicrovoltsOn) {
  const auto hum = [](double microvolts) {
    return signalOf([microvolts](int s) { return eeg(s) + sineAt(s, 100, microvolts); });
  };
  EXPECT_EQ(hum(20).reason, "50 Hz: disturbo della rete elettrica di 20 microvolt");
  EXPECT_EQ(hum(8).state, SignalState::mains);
  EXPECT_EQ(hum(7).state, SignalState::good);
}

TEST(SiteSignal, OfAHumThatFillsTheScaleNamesTheHum) {
  const SiteSignal signal = signalOf([](int s) { return eeg(s) + sineAt(s, 100, 160); });
  EXPECT_EQ(signal.state, SignalState::mains);
}

TEST(SiteSignal, OfALooseElectrodeIsMovement) {
  const SiteSignal jumping = signalOf([](int s) { return eeg(s) + (s / 60 % 2 == 0 ? 0 : 90); });
  EXPECT_EQ(jumping.state, SignalState::movement);
  EXPECT_TRUE(jumping.reason.starts_with("movimento: salto improvviso di ")) << jumping.reason;
}

TEST(SiteSignal, ThatStaysFarFromZeroIsMovement) {
  const SiteSignal away = signalOf([](int s) { return eeg(s) + 90 * std::sin(std::numbers::pi * s / 256); });
  EXPECT_EQ(away.state, SignalState::movement);
  EXPECT_TRUE(away.reason.starts_with("movimento: per il ")) << away.reason;
  EXPECT_TRUE(away.reason.ends_with(" % del blocco il segnale è a più di 60 microvolt dallo zero")) << away.reason;
}

TEST(SignalQuality, JudgesEachSiteByItsOwnChannel) {
  Bounded<float, 4, 258> block;
  for (int s = 0; s <= 258; ++s) {
    block[1][s] = static_cast<float>(128 + eeg(s));
    block[2][s] = 128;
    block[3][s] = 255;
    block[4][s] = static_cast<float>(128 + eeg(s) + sineAt(s, 100, 30));
  }
  const SiteSignals signals = signalQuality(block);
  EXPECT_EQ(signals[0].state, SignalState::good);
  EXPECT_EQ(signals[1].state, SignalState::flat);
  EXPECT_EQ(signals[2].state, SignalState::saturated);
  EXPECT_EQ(signals[3].state, SignalState::mains);
}

TEST(SignalQuality, HasAWordForEachStateAndARemedyForEachFault) {
  for (int i = 0; i < signalStates; ++i) {
    const auto state = static_cast<SignalState>(i);
    EXPECT_FALSE(nameOf(state).empty());
    EXPECT_EQ(remedyFor(state).empty(), state == SignalState::waiting || state == SignalState::good);
  }
  EXPECT_EQ(nameOf(SignalState::movement), "movimento");
}

}  // namespace
}  // namespace korvinel::guidance
