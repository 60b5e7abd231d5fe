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

/// The instrument on its cable, in real time.
class Session {
 public:
  /// Opens the port and the recording that the options name, and writes to `output` when and where the port is ready,
  /// also after a replug. Throws std::runtime_error with a message for the user.
  Session(const Options& options, std::ostream& output);

  /// Waits until something is due or arrives, at most `most`, and handles it. `alsoWakes`: a descriptor that ends the
  /// wait when it becomes readable, or -1. Returns false when the session is over: the cable is permanently out.
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
