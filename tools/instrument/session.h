#pragma once

#include <chrono>
#include <fstream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "instrument/instrument.h"
#include "instrument/options.h"
#include "instrument/pseudo_terminal.h"

namespace korvinel::instrument {

/// The instrument at its cable, in real time.
class Session {
 public:
  /// Opens what the options name and says on `output` when and where the port is ready, also after a replug. Throws
  /// std::runtime_error with a message for the user.
  Session(const Options& options, std::ostream& output);

  /// Waits until something is due or arrives, at most `most`, and deals with it. `alsoWakes`: a descriptor whose
  /// becoming readable ends the wait, or -1. Returns false when the session is over: the cable is out for good.
  bool step(std::chrono::milliseconds most, int alsoWakes = -1);

 private:
  void connect();
  void pullOut();
  void exchangeBytes();
  void report(const std::string& event);
  void wait(double seconds, int alsoWakes) const;
  [[nodiscard]] double now() const;  // seconds since the session began

  Options options_;
  std::ostream& output_;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  std::ofstream log_;
  Instrument instrument_;
  std::unique_ptr<PseudoTerminal> cable_;
  std::optional<double> replugTime_;  // when the cable comes back
};

}  // namespace korvinel::instrument
