#include "instrument/instrument.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvinel::instrument {
namespace {

std::string hex(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char letter : bytes) {
    const auto code = static_cast<unsigned char>(letter);
    text += {' ', digits[code / 16], digits[code % 16]};
  }
  return text;
}

/// Ten bits a byte at 19200 baud; less if a frame would not fit its time.
double byteSeconds(double framesPerSecond) { return std::min(10.0 / 19200, 1 / framesPerSecond / 4); }

}  // namespace

Instrument::Instrument(std::unique_ptr<FrameSource> source, double speed, Faults faults, const Wiring& wiring)
    : source_(std::move(source)),
      faults_(std::move(faults)),
      framesPerSecond_(framesPerSecond * speed * (faults_.flood ? 100 : 1)),
      wire_(wiring, byteSeconds(framesPerSecond_), 1 / framesPerSecond_) {}

void Instrument::receive(std::string_view bytes, double now) {
  produceUpTo(now);
  if (unplugged_) return;
  std::string ignored;
  for (const char byte : bytes) {
    const CommandRecogniser::Step step = recogniser_.take(byte);
    ignored += step.ignored;
    if (!step.command) continue;
    reportIgnored(std::exchange(ignored, {}));
    obey(*step.command, now);
  }
  reportIgnored(ignored);
}

void Instrument::reportIgnored(const std::string& bytes) {
  if (!bytes.empty()) events_.push_back("ignored bytes" + hex(bytes));
}

void Instrument::obey(Command command, double now) {
  events_.push_back("received " + std::string(nameOf(command)) + hex(bytesOf(command)));
  if (faults_.cutFrames && streaming_ && command != Command::test) wire_.cut(now);
  switch (command) {
    case Command::test:
      if (!faults_.testKeepsStreaming) streaming_ = false;
      if (!faults_.noAnswer) scheduleAnswer(now);
      break;
    case Command::start:
      if (++startsReceived_ > faults_.ignoredStarts) startStream(now);
      break;
    case Command::stop:
      if (!faults_.ignoreStop) streaming_ = false;
      break;
  }
}

void Instrument::scheduleAnswer(double now) {
  std::string text = faults_.wrongAnswer.empty() ? "OK" : faults_.wrongAnswer;
  if (faults_.repeatAnswer) text += text;
  const double due = now + static_cast<double>(faults_.lateAnswerMs) / 1000;
  constexpr double pauseWithin = 0.3;
  answers_.push_back({due, faults_.splitAnswer ? text.substr(0, 1) : text});
  if (faults_.splitAnswer) answers_.push_back({due + pauseWithin, text.substr(1)});
  std::ranges::stable_sort(answers_, {}, &Answer::due);  // a second test may come within the pause
}

void Instrument::startStream(double now) {
  streaming_ = true;
  streamStart_ = now;
  framesOfStream_ = 0;
}

double Instrument::frameDue() const {
  if (!streaming_) return std::numeric_limits<double>::infinity();
  return streamStart_ + static_cast<double>(framesOfStream_ + 1) / framesPerSecond_;
}

double Instrument::nextDue() const {
  const double made = std::min(frameDue(), wire_.nextDue());
  return answers_.empty() ? made : std::min(made, answers_.front().due);
}

void Instrument::produceUpTo(double now) {
  constexpr int mostFramesAtOnce = 4096;
  for (int frames = 0; !unplugged_;) {
    const double answerDue = answers_.empty() ? std::numeric_limits<double>::infinity() : answers_.front().due;
    if (std::min(answerDue, frameDue()) > now) return;
    if (answerDue <= frameDue()) {
      wire_.putAnswer(answerDue, answers_.front().text);
      answers_.pop_front();
    } else if (frames++ < mostFramesAtOnce) {
      if (!interruptedByFault()) produceFrame();
    } else {
      startStream(now);
    }
  }
}

bool Instrument::interruptedByFault() {
  const std::int64_t frames = framesStreamed_;
  const auto strike = [frames](std::vector<std::int64_t>& blocks) {  // each entry acts once
    return std::erase_if(blocks, [frames](std::int64_t count) { return count * framesPerBlock == frames; }) > 0;
  };
  const bool silenced = strike(faults_.silentAfterBlocks);
  const bool pulledOut = strike(faults_.hangUpAfterBlocks);
  if (!silenced && !pulledOut) return false;
  streaming_ = false;
  unplugged_ = pulledOut;
  events_.push_back((pulledOut ? "unplugged after " : "silent after ") + std::to_string(frames) + " frames");
  return true;
}

void Instrument::produceFrame() {
  const std::optional<Frame> frame = source_->nextFrame();
  if (!frame) {
    events_.emplace_back("the recording has ended");
    streaming_ = false;
    return;
  }
  std::string piece;
  for (const std::uint8_t sample : *frame) piece += onTheWire(faults_, ++bytesStreamed_, static_cast<char>(sample));
  if (!piece.empty()) wire_.put(frameDue(), piece);
  ++framesOfStream_;
  ++framesStreamed_;
}

void Instrument::plugIn() {
  unplugged_ = streaming_ = false;
  recogniser_ = {};
  answers_.clear();
  wire_.clear();
}

std::vector<std::string> Instrument::takeDue(double now) {
  produceUpTo(now);
  return wire_.takeDue(now);
}

std::vector<std::string> Instrument::takeEvents() { return std::exchange(events_, {}); }

}  // namespace korvinel::instrument
