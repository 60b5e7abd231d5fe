#include "instrument/options.h"

#include <getopt.h>

#include <array>
#include <cstdlib>

#include "instrument/number_text.h"

namespace korvinel::instrument {
namespace {

enum Key : int {
  help = 1,
  version,
  link,
  port,
  model,
  seed,
  play,
  once,
  speed,
  pace,
  chunk,
  latency,
  fault,
  replug,
  log
};

constexpr std::array<option, 16> longOptions{{
    {"help", no_argument, nullptr, help},
    {"version", no_argument, nullptr, version},
    {"link", required_argument, nullptr, link},
    {"port", required_argument, nullptr, port},
    {"model", required_argument, nullptr, model},
    {"seed", required_argument, nullptr, seed},
    {"play", required_argument, nullptr, play},
    {"once", no_argument, nullptr, once},
    {"speed", required_argument, nullptr, speed},
    {"pace", required_argument, nullptr, pace},
    {"chunk", required_argument, nullptr, chunk},
    {"latency", required_argument, nullptr, latency},
    {"fault", required_argument, nullptr, fault},
    {"replug", required_argument, nullptr, replug},
    {"log", required_argument, nullptr, log},
    {nullptr, 0, nullptr, 0},
}};

// The options as written, before they are checked against each other.
struct Written {
  Options options;
  std::optional<std::int64_t> port;
  bool hasModel = false, hasSeed = false, hasAdapter = false;
};

std::filesystem::path pathIn(const std::string& value, const char* what) {
  if (value.empty()) throw UsageError(std::string(what) + " needs a file name");
  return value;
}

Pace paceIn(const std::string& value) {
  if (value == "uart") return Pace::backToBack;
  if (value == "spread") return Pace::evenlySpread;
  if (value == "frames") return Pace::wholeFrames;
  throw UsageError("unknown pace '" + value + "'; the paces are uart, spread, frames");
}

void applyAdapter(Written& written, int key, const std::string& value) {
  Wiring& wiring = written.options.wiring;
  written.hasAdapter = true;
  if (key == chunk) wiring.chunkBytes = static_cast<int>(wholeNumberIn(value, 1, 4096, "the bytes of a chunk"));
  if (key == latency) wiring.latencySeconds = numberIn(value, 0, 1000, "the milliseconds of the latency") / 1000;
}

void apply(Written& written, int key, const std::string& value) {
  Options& options = written.options;
  switch (key) {
    case help: options.help = true; break;
    case version: options.version = true; break;
    case link: options.link = pathIn(value, "--link"); break;
    case port: written.port = wholeNumberIn(value, 1, 255, "the number of the port"); break;
    case model:
      options.models = parseModels(value);
      written.hasModel = true;
      break;
    case seed:
      options.seed = static_cast<std::uint64_t>(wholeNumberIn(value, 0, INT64_MAX, "the seed"));
      written.hasSeed = true;
      break;
    case play: options.recording = pathIn(value, "--play"); break;
    case once: options.once = true; break;
    case speed: options.speed = numberIn(value, 0.001, 1000, "the speed"); break;
    case pace: options.wiring.pace = paceIn(value); break;
    case chunk:
    case latency: applyAdapter(written, key, value); break;
    case fault: addFault(options.faults, value); break;
    case replug: options.replugSeconds = numberIn(value, 0, 86400, "the seconds before the cable comes back"); break;
    case log: options.log = pathIn(value, "--log"); break;
    default: break;
  }
}

void refuseContradictions(const Written& written) {
  const Options& options = written.options;
  if (written.port && !options.link.empty()) throw UsageError("choose either --link or --port");
  if (options.recording && (written.hasModel || written.hasSeed))
    throw UsageError("choose either --play or --model with --seed");
  if (written.hasAdapter && options.wiring.pace == Pace::wholeFrames)
    throw UsageError("--chunk and --latency need --pace uart or spread");
  if (options.once && !options.recording) throw UsageError("--once needs --play");
  if (options.replugSeconds && options.faults.hangUpAfterBlocks.empty())
    throw UsageError("--replug needs --fault hang-up-after=N");
}

Options completed(const Written& written, const std::filesystem::path& dataFolder) {
  Options options = written.options;
  if (!options.link.empty() || options.answersOnly()) return options;
  if (dataFolder.empty()) throw UsageError("neither XDG_DATA_HOME nor HOME names a folder; choose the port by --link");
  options.link = dataFolder / "ports" / ("COM" + std::to_string(written.port.value_or(1)));
  return options;
}

Written readArguments(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "korvinel-instrument");
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const int count = static_cast<int>(arguments.size());
  Written written;
  optind = 0;  // restarts, even after an earlier call
  opterr = 0;  // the messages are our own
  for (;;) {
    const int at = optind == 0 ? 1 : optind;
    const int key = getopt_long(count, pointers.data(), "+:h", longOptions.data(), nullptr);
    if (key == -1) break;
    if (key == ':') throw UsageError("the option '" + arguments[static_cast<std::size_t>(at)] + "' needs a value");
    if (key == '?')
      throw UsageError("unknown, ambiguous or wrongly used option '" + arguments[static_cast<std::size_t>(at)] + "'");
    apply(written, key == 'h' ? static_cast<int>(help) : key, optarg == nullptr ? "" : optarg);
  }
  if (optind < count)
    throw UsageError("'" + arguments[static_cast<std::size_t>(optind)] + "' is not an option; see --help");
  return written;
}

}  // namespace

Options parseOptions(const std::vector<std::string>& arguments, const std::filesystem::path& dataFolder) {
  try {
    const Written written = readArguments(arguments);
    if (!written.options.answersOnly()) refuseContradictions(written);
    return completed(written, dataFolder);
  } catch (const UsageError&) {
    throw;
  } catch (const std::invalid_argument& refusal) {
    throw UsageError(refusal.what());
  }
}

std::filesystem::path userDataFolder() {
  const auto environment = [](const char* name) -> std::filesystem::path {
    const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): read once, before any thread
    return value == nullptr ? "" : value;
  };
  if (const auto data = environment("XDG_DATA_HOME"); data.is_absolute()) return data / "korvinel";
  const auto home = environment("HOME");
  return home.empty() ? home : home / ".local" / "share" / "korvinel";
}

std::string helpText() {
  return R"(Usage: korvinel-instrument [OPTION]...

Simulates the four-channel EEG instrument on a pseudo-terminal and links it as a
serial port. It answers the test command with "OK", streams after the start
command (128 frames a second of 4 bytes: F1, F2, T5, T6; 128 = 0 uV, 1 unit =
1 uV) and stops after the stop command. It runs until SIGINT (Ctrl-C), SIGTERM
or SIGHUP, and then removes the link. A block is 256 frames: 1024 bytes, 2 s.

The port
  --port N            link it as COMN, N = 1..255, in the ports folder of the
                      user's data folder (default 1:
                      $XDG_DATA_HOME/korvinel/ports/COM1, without the variable
                      ~/.local/share/korvinel/ports/COM1)
  --link PATH         link it as PATH instead; folders are created, a symbolic
                      link is replaced, anything else is left alone

The signal
  --model MODEL       what the four electrodes pick up (default eyes-closed):
                      eyes-closed  alpha of about 10 Hz, 20 to 40 uV at T5, T6
                      eyes-open    background of about 9 uV, some beta
                      blinks       eyes open, a blink of 100 to 150 uV at F1,
                                   F2 every 3 to 6 s
                      mains-hum    eyes open, hum of 90 uV at 50 Hz
                      drowsy       theta of 5 to 6 Hz, slow waves, rare alpha
                      saturated    swings clipped at 0 and 255
                      flat         all samples 128 (0 uV)
  --model MODEL:SECONDS,MODEL:SECONDS,...
                      one model after the other, in seconds of streaming; the
                      list starts again at its end, or stays at a last model
                      without seconds
  --seed N            another head: 0 to 9223372036854775807 (default 1); the
                      same models and seed give the same samples
  --play FILE         play a raw file of 4-byte frames (F1, F2, T5, T6) instead,
                      again and again
  --once              with --play: fall silent at the end of the file
  --speed X           X times 128 frames a second, 0.001 to 1000 (default 1)

The cable
  --pace PACE         how a frame's four bytes come: uart, back to back at 19200
                      baud, then a pause (the default); spread, evenly over the
                      frame's time; frames, all at once, as no cable does it
  --chunk N           the adapter hands N bytes on at once, 1 to 4096 (default
                      62, as on USB; a UART 1, 8 or 14), ...
  --latency MS        ... or fewer when the first of them has waited for MS
                      milliseconds or up to half less, 0 to 1000 (default 16)

Faults (--fault may be given several times; bytes and blocks are counted from
the start of the program, over all starts and stops)
  --fault no-answer             no answer to the test command
  --fault wrong-answer[=TEXT]   answers TEXT (default NO)
  --fault late-answer=MS        answers after MS milliseconds
  --fault split-answer          first character, 300 ms pause, the rest
  --fault repeat-answer         the answer twice (OKOK)
  --fault test-keeps-streaming  the test command does not end a running stream
  --fault ignore-start=N        ignores the first N start commands
  --fault ignore-stop           ignores the stop command
  --fault silent-after=N        after N blocks, silence until the next start
  --fault cut-frames            a start or a stop cuts the frame being sent
  --fault lose-byte=N           the Nth byte streamed is lost (N from 1)
  --fault double-byte=N         the Nth byte streamed comes twice
  --fault flip-byte=N           the Nth byte streamed has all bits inverted
  --fault flood                 streams 100 times too fast
  --fault hang-up-after=N       after N blocks the cable is pulled out: the line
                                hangs up, the link goes, the program ends
  --replug SECONDS              with hang-up-after: instead of ending, come back
                                under the same link after SECONDS, 0 to 86400

Other
  --log FILE          append what is received and what happens to FILE, a line
                      each, with the seconds since the start of the program
  -h, --help          show this help
  --version           show the version

Exit code: 0 ended as asked, 1 the port or a file cannot be used, 2 the command
line is not understood.
)";
}

}  // namespace korvinel::instrument
