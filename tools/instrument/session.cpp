#include "instrument/session.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <stdexcept>

namespace korvinel::instrument {
namespace {

std::unique_ptr<FrameSource> sourceFor(const Options& options) {
  if (options.recording) return recordingSource(readRecording(*options.recording), options.once);
  return modelSource(options.models, options.seed);
}

std::ofstream openLog(const Options& options) {
  std::ofstream log;
  if (!options.log) return log;
  log.open(*options.log, std::ios::app);
  if (!log) throw std::runtime_error("cannot write the log '" + options.log->string() + "'");
  return log;
}

}  // namespace

Session::Session(const Options& options, std::ostream& output)
    : options_(options),
      output_(output),
      log_(openLog(options)),
      instrument_(sourceFor(options), options.speed, options.faults, options.wiring) {
  connect();
}

void Session::connect() {
  cable_ = std::make_unique<PseudoTerminal>(options_.link);
  output_ << "korvinel-instrument: ready on " << cable_->link().string() << " (" << cable_->device() << ")"
          << std::endl;  // flushed: scripts wait for this line
  report("ready on " + cable_->device());
}

bool Session::step(std::chrono::milliseconds most, int alsoWakes) {
  if (!cable_ && !replugTime_) return false;
  const double due = cable_ ? instrument_.nextDue() : *replugTime_;
  const double longest = std::chrono::duration<double>(most).count();
  wait(std::clamp(due - now(), 0.0, longest), alsoWakes);
  if (cable_) exchangeBytes();
  if (instrument_.unplugged() && cable_) pullOut();
  if (replugTime_ && now() >= *replugTime_) {
    replugTime_.reset();
    instrument_.plugIn();
    connect();
  }
  return cable_ || replugTime_;
}

void Session::wait(double seconds, int alsoWakes) const {
  // poll() ignores negative descriptors. Rounded up: a millisecond late does no harm, waking early wastes processor
  // time.
  std::array<pollfd, 2> descriptors{{{cable_ ? cable_->pollDescriptor() : -1, POLLIN, 0}, {alsoWakes, POLLIN, 0}}};
  ::poll(descriptors.data(), descriptors.size(), static_cast<int>(std::ceil(seconds * 1000)));
}

void Session::exchangeBytes() {
  const std::string received = cable_->receive();
  if (!received.empty()) instrument_.receive(received, now());
  for (const std::string& piece : instrument_.takeDue(now())) cable_->send(piece);
  for (const std::string& event : instrument_.takeEvents()) report(event);
}

void Session::pullOut() {
  cable_.reset();
  output_ << "korvinel-instrument: unplugged" << std::endl;
  if (!options_.replugSeconds) return;
  replugTime_ = now() + *options_.replugSeconds;
}

void Session::report(const std::string& event) {
  if (log_.is_open()) log_ << std::fixed << std::setprecision(3) << now() << ' ' << event << std::endl;
}

double Session::now() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count(); }

}  // namespace korvinel::instrument
