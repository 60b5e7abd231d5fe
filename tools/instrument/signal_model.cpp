#include "instrument/signal_model.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

#include "instrument/number_text.h"

namespace korvinel::instrument {
namespace {

// The share of each source in a model, in uV: noise by its deviation, rhythms by the peak of a full spindle, the hum by
// its amplitude.
struct Mix {
  double background, alphaBack, alphaFront, beta, theta, slowWaves, blinks, hum, swing;
  bool alphaDropsOut;
};

struct Entry {
  Model model;
  std::string_view name;
  Mix mix;
};

constexpr std::array<Entry, 7> models{{
    {Model::eyesClosed, "eyes-closed", {9, 30, 10, 1.5, 2, 0, 0, 0, 0, false}},
    {Model::eyesOpen, "eyes-open", {9, 3, 1, 3, 0, 0, 0, 0, 0, false}},
    {Model::blinks, "blinks", {9, 3, 1, 3, 0, 0, 1, 0, 0, false}},
    {Model::mainsHum, "mains-hum", {9, 3, 1, 3, 0, 0, 0, 90, 0, false}},
    {Model::drowsy, "drowsy", {9, 14, 5, 1.5, 28, 8, 0, 0, 0, true}},
    {Model::saturated, "saturated", {20, 3, 1, 3, 0, 0, 0, 0, 300, false}},
    {Model::flat, "flat", {}},
}};

const Mix& mixOf(Model model) {
  return std::find_if(models.begin(), models.end(), [&](const Entry& entry) { return entry.model == model; })->mix;
}

Model modelNamed(std::string_view name) {
  const auto* entry = std::find_if(models.begin(), models.end(), [&](const Entry& each) { return each.name == name; });
  if (entry != models.end()) return entry->model;
  throw std::invalid_argument("unknown model '" + std::string(name) + "'; the models are " + modelNames());
}

ModelStep parseStep(std::string_view text) {
  const auto colon = text.find(':');
  ModelStep step{modelNamed(text.substr(0, colon))};
  if (colon == std::string_view::npos) return step;
  const double seconds = numberIn(text.substr(colon + 1), 0.01, 1e6, "the seconds of a model");
  step.frames = std::max<std::int64_t>(1, std::llround(seconds * framesPerSecond));
  return step;
}

std::uint8_t toSample(double microvolts) {
  return static_cast<std::uint8_t>(std::clamp(std::lround(128 + microvolts), 0L, 255L));
}

constexpr std::array<double, 4> blinkGains{1, 0.93, 0.08, 0.07};  // the eyes are far from the temporal sites
constexpr std::array<double, 4> humGains{1, 0.97, 1.03, 0.98};    // every electrode lead picks up about the same
constexpr std::array<double, 4> thetaGains{1, 1, 0.9, 0.9};

}  // namespace

std::string modelNames() {
  std::string names;
  for (const Entry& entry : models) names += (names.empty() ? "" : ", ") + std::string(entry.name);
  return names;
}

std::vector<ModelStep> parseModels(std::string_view text) {
  std::vector<ModelStep> steps;
  for (bool last = false; !last;) {
    const auto comma = text.find(',');
    last = comma == std::string_view::npos;
    steps.push_back(parseStep(text.substr(0, comma)));
    if (!last && steps.back().frames == 0)
      throw std::invalid_argument("only the last model may go without seconds: MODEL:SECONDS,MODEL:SECONDS,MODEL");
    if (!last) text.remove_prefix(comma + 1);
  }
  return steps;
}

SignalModel::SignalModel(std::vector<ModelStep> steps, std::uint64_t seed)
    : steps_(std::move(steps)),
      random_(seed),
      alpha_(random_.between(9.6, 10.4)),  // the alpha frequency differs between people
      theta_(random_.between(5.2, 5.8)),
      beta_{BandNoise(19, 8), BandNoise(19, 8), BandNoise(19, 8), BandNoise(19, 8)},
      swing_{BandNoise(0.8, 0.6), BandNoise(0.8, 0.6), BandNoise(0.8, 0.6), BandNoise(0.8, 0.6)},
      slowWaves_{BandNoise(2.2, 1), BandNoise(2.2, 1), BandNoise(2.2, 1)} {
  constexpr int framesToSettle = 1024;  // all sources start at zero; the slowest takes some seconds
  for (int frame = 0; frame < framesToSettle; ++frame) advanceSources();
}

Frame SignalModel::nextFrame() {
  advanceStep();
  advanceSources();
  Frame frame;
  std::ranges::transform(microvolts(), frame.begin(), toSample);
  return frame;
}

void SignalModel::advanceStep() {
  if (steps_[step_].frames != 0 && framesOfStep_ == steps_[step_].frames) {
    step_ = (step_ + 1) % steps_.size();
    framesOfStep_ = 0;
  }
  ++framesOfStep_;
}

void SignalModel::advanceSources() {
  std::array<double, 7> pink{};
  for (std::size_t source = 0; source < pink.size(); ++source) pink[source] = background_[source].next(random_);
  std::array<double, 3> slow{};
  for (std::size_t source = 0; source < slow.size(); ++source) slow[source] = slowWaves_[source].next(random_);
  for (std::size_t site = 0; site < 4; ++site) {
    const std::size_t region = site / 2;  // 0 front, 1 back: homologous sites share much of their activity
    now_.background[site] = 0.4 * pink[0] + 0.6 * pink[1 + region] + 0.69 * pink[3 + site];
    now_.slowWaves[site] = 0.8 * slow[0] + 0.6 * slow[1 + region];
    now_.beta[site] = beta_[site].next(random_);
    now_.swing[site] = swing_[site].next(random_);
  }
  alpha_.advance(random_);
  theta_.advance(random_);
  now_.alertness = std::clamp(alertness_.next(random_), 0.0, 1.0);
  now_.blink = blinks_.next(random_);
  humPhase_ = std::fmod(humPhase_ + 50 / framesPerSecond, 1.0);
  now_.hum = std::sin(2 * std::numbers::pi * humPhase_);
}

std::array<double, 4> SignalModel::microvolts() const {
  const Mix& mix = mixOf(steps_[step_].model);
  const double presence = mix.alphaDropsOut ? now_.alertness : 1;
  const double front = mix.alphaFront * presence;
  const double back = mix.alphaBack * presence;
  constexpr double lagInFront = 0.15;  // alpha reaches the front a little later, and T6 a little stronger than T5
  const std::array<double, 4> alpha{front * alpha_.left(lagInFront), front * alpha_.right(lagInFront),
                                    back * alpha_.left(), 1.1 * back * alpha_.right()};
  const std::array<double, 4> theta{theta_.left(), theta_.right(), theta_.left(0.1), theta_.right(0.1)};
  std::array<double, 4> sum{};
  for (std::size_t site = 0; site < 4; ++site) {
    sum[site] = mix.background * now_.background[site] + alpha[site] + mix.beta * now_.beta[site] +
                mix.theta * thetaGains[site] * theta[site] + mix.slowWaves * now_.slowWaves[site] +
                mix.blinks * blinkGains[site] * now_.blink + mix.hum * humGains[site] * now_.hum +
                mix.swing * now_.swing[site];
  }
  return sum;
}

}  // namespace korvinel::instrument
