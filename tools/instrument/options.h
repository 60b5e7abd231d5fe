#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "instrument/faults.h"
#include "instrument/signal_model.h"
#include "instrument/wire.h"

namespace korvinel::instrument {

/// The options of a run.
struct Options {
  bool help = false;                                           ///< show helpText() and end
  bool version = false;                                        ///< show the version and end
  std::filesystem::path link;                                  ///< where the port is linked
  std::vector<ModelStep> models = parseModels("eyes-closed");  ///< used unless a recording is played
  std::uint64_t seed = 1;
  std::optional<std::filesystem::path> recording;  ///< the raw file to play
  bool once = false;                               ///< fall silent at the recording's end
  double speed = 1;                                ///< multiplies the 128 frames per second
  Wiring wiring;
  Faults faults;
  std::optional<double> replugSeconds;  ///< pause between a hang-up and the cable coming back
  std::optional<std::filesystem::path> log;

  [[nodiscard]] bool answersOnly() const { return help || version; }
};

/// An invalid command line; what() is a message for the user.
struct UsageError : std::invalid_argument {
  using std::invalid_argument::invalid_argument;
};

/// Reads the arguments without the program's name. `dataFolder`: the user's data folder of Korvinel, which holds
/// `ports/`; empty if there is none; --link is then required. Throws UsageError.
[[nodiscard]] Options parseOptions(const std::vector<std::string>& arguments, const std::filesystem::path& dataFolder);

/// `$XDG_DATA_HOME/korvinel`, or `~/.local/share/korvinel` if that is unset or relative; empty without a home.
[[nodiscard]] std::filesystem::path userDataFolder();

[[nodiscard]] std::string helpText();

}  // namespace korvinel::instrument
