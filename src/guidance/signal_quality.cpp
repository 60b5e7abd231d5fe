#include "guidance/signal_quality.h"

#include <algorithm>
#include <cmath>

namespace korvinel::guidance {
namespace {

// The thresholds. They were chosen on recordings of five people and are measured in docs/signal-quality.md.

/// A blink that reaches the end of the scale stays there for some 10 samples of 256. From 21 on, a sixth of a second of
/// the block is missing.
constexpr double mostAtLimits = 0.08;

/// The noise of an input without electrode stays within 4 microvolts. The quietest EEG moves by 10 within half a
/// second.
constexpr float stillRange = 4;
constexpr int longestStillAllowed = 48;  // samples, three eighths of a second: a fault at the edge of a block is seen

/// Strong muscle activity reaches 5.5 microvolts at 50 Hz, and is as strong beside it.
constexpr double leastHum = 7.5;
constexpr double humOverNeighbours = 2;
/// A hum that itself fills the scale: the cable is at fault, although the samples are at the limit.
constexpr double ruinousHum = 40;
constexpr double ruinousOverNeighbours = 5;

/// A bad contact makes the level jump within one sample or two. The jumps are compared with the usual change from
/// sample to sample of the same block, which is several times larger in one person than in another: either one jump
/// that no brain makes, or three that are each unusual.
struct JumpLimit {
  int apart;            // samples
  double one, another;  // times the usual change
};
constexpr std::array<JumpLimit, 2> jumpLimits{{{1, 8.4, 6.2}, {2, 8.4, 6.6}}};
constexpr double leastJump = 35;  // microvolts; below, no analysis is disturbed

/// A blink of a calm person is away from zero for an eighth of a block. Where more than a quarter of it is, too little
/// is left from which the removal of ocular artefacts could fill the rest.
constexpr double farFromZero = 60;  // microvolts
constexpr double mostDisplaced = 0.25;

std::string rounded(double value) { return std::to_string(std::lround(value)); }
std::string percent(double share) { return rounded(100 * share) + " %"; }

SiteSignal found(SignalState state, const std::string& why) { return {state, std::string(nameOf(state)) + ": " + why}; }

SiteSignal humming(const Hum& hum) {
  return found(SignalState::mains, "disturbo della rete elettrica di " + rounded(hum.amplitude) + " microvolt");
}

bool jumpsTooFar(const Jumps& jump, const JumpLimit& limit) {
  return jump.largest >= std::max(leastJump, limit.one * jump.usual) ||
         jump.third >= std::max(leastJump, limit.another * jump.usual);
}

SiteSignal movementIn(ChannelSamples samples) {
  for (const JumpLimit& limit : jumpLimits) {
    const Jumps jump = jumps(samples, limit.apart);
    if (jumpsTooFar(jump, limit))
      return found(SignalState::movement, "salto improvviso di " + rounded(jump.largest) + " microvolt");
  }
  const double displaced = shareDisplaced(samples, farFromZero);
  if (displaced >= mostDisplaced)
    return found(SignalState::movement, "per il " + percent(displaced) + " del blocco il segnale è a più di " +
                                            rounded(farFromZero) + " microvolt dallo zero");
  return found(SignalState::good, "nessun disturbo evidente");
}

std::string secondsOf(int samples) {
  const long tenths = std::lround(10.0 * samples / eeg::samplesPerSecond);
  return std::to_string(tenths / 10) + "," + std::to_string(tenths % 10) + " s";
}

struct Wording {
  SignalState state;
  std::string_view name, remedy;
};

constexpr std::array<Wording, signalStates> wordings{{
    {SignalState::waiting, "in attesa", ""},
    {SignalState::good, "buono", ""},
    {SignalState::flat, "piatto", "Controllare che l'elettrodo tocchi la pelle e che il suo cavo sia inserito."},
    {SignalState::saturated, "saturo",
     "Sistemare di nuovo l'elettrodo con la pasta conduttiva; controllare anche il riferimento e la massa."},
    {SignalState::mains, "50 Hz",
     "Allontanare i cavi di alimentazione, spegnere gli apparecchi vicini, controllare la massa e il contatto "
     "dell'elettrodo."},
    {SignalState::movement, "movimento",
     "Chiedere alla persona di rilassarsi e di stare ferma; se non basta, fissare meglio l'elettrodo e il suo cavo."},
}};

const Wording& wordingOf(SignalState state) {
  return *std::ranges::find(wordings, state, [](const Wording& wording) { return wording.state; });
}

}  // namespace

SiteSignal siteSignal(ChannelSamples samples) {
  const Hum hum = mainsHum(samples, leastHum, humOverNeighbours);
  if (hum.amplitude >= ruinousHum && hum.overNeighbours >= ruinousOverNeighbours) return humming(hum);
  const double atLimits = shareAtLimits(samples);
  if (atLimits >= mostAtLimits)
    return found(SignalState::saturated, percent(atLimits) + " dei campioni al limite della scala");
  const int still = longestStill(samples, stillRange);
  if (still >= longestStillAllowed) return found(SignalState::flat, "fermo per " + secondsOf(still));
  if (hum.amplitude > 0) return humming(hum);
  return movementIn(samples);
}

SiteSignals signalQuality(const Bounded<float, 4, 258>& block) {
  SiteSignals signals;
  for (int channel = 1; channel <= eeg::channelCount; ++channel)
    signals[static_cast<std::size_t>(channel - 1)] =
        siteSignal(ChannelSamples(block[channel].data() + 1, eeg::samplesPerBlock));
  return signals;
}

std::string_view nameOf(SignalState state) { return wordingOf(state).name; }

std::string_view remedyFor(SignalState state) { return wordingOf(state).remedy; }

}  // namespace korvinel::guidance
