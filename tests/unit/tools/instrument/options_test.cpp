#include "instrument/options.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

namespace korvinel::instrument {
namespace {

Options parse(const std::vector<std::string>& arguments) { return parseOptions(arguments, "/data/korvinel"); }

std::string refusalOf(const std::vector<std::string>& arguments) {
  try {
    (void)parse(arguments);
  } catch (const UsageError& refusal) {
    return refusal.what();
  }
  return "";
}

TEST(ParseOptions, HasDefaults) {
  const Options options = parse({});
  EXPECT_EQ(options.link, "/data/korvinel/ports/COM1");
  EXPECT_EQ(options.models, parseModels("eyes-closed"));
  EXPECT_EQ(options.seed, 1U);
  EXPECT_EQ(options.speed, 1);
  EXPECT_FALSE(options.help || options.once || options.recording || options.log || options.replugSeconds);
}

TEST(Options, TheCableIsThatOfAUsbAdapterUnlessAnotherIsNamed) {
  EXPECT_EQ(parse({}).wiring.pace, Pace::backToBack);
  EXPECT_EQ(parse({}).wiring.chunkBytes, 62);
  EXPECT_EQ(parse({}).wiring.latencySeconds, 0.016);
  const Options options = parse({"--pace", "spread", "--chunk", "8", "--latency", "2"});
  EXPECT_EQ(options.wiring.pace, Pace::evenlySpread);
  EXPECT_EQ(options.wiring.chunkBytes, 8);
  EXPECT_EQ(options.wiring.latencySeconds, 0.002);
  EXPECT_EQ(parse({"--pace=frames"}).wiring.pace, Pace::wholeFrames);
}

TEST(ParseOptions, ReadsEveryOption) {
  const Options options = parse({"--port=3", "--play", "eeg.raw", "--once", "--speed", "2.5", "--log", "log.txt",
                                 "--fault", "no-answer", "--fault=hang-up-after=2", "--replug", "1.5"});
  EXPECT_EQ(options.link, "/data/korvinel/ports/COM3");
  EXPECT_EQ(options.recording, "eeg.raw");
  EXPECT_TRUE(options.once);
  EXPECT_EQ(options.speed, 2.5);
  EXPECT_EQ(options.log, "log.txt");
  EXPECT_TRUE(options.faults.noAnswer);
  EXPECT_EQ(options.faults.hangUpAfterBlocks, std::vector<std::int64_t>{2});
  EXPECT_EQ(options.replugSeconds, 1.5);
  const Options model = parse({"--link", "here/port", "--model", "flat:1,blinks", "--seed", "77"});
  EXPECT_EQ(model.link, "here/port");
  EXPECT_EQ(model.models, parseModels("flat:1,blinks"));
  EXPECT_EQ(model.seed, 77U);
}

TEST(ParseOptions, ForgetsEarlierCalls) {
  (void)parse({"--model", "flat", "--speed", "3"});
  EXPECT_EQ(parse({"--speed", "4"}).speed, 4);
}

TEST(ParseOptions, ShowsHelpWhateverElseIsWritten) {
  EXPECT_TRUE(parse({"--help"}).help);
  EXPECT_TRUE(parse({"--once", "-h"}).help);
  EXPECT_TRUE(parseOptions({"--help"}, "").help);
}

TEST(ParseOptions, ShowsTheVersionWithoutAPortToOpen) {
  EXPECT_TRUE(parseOptions({"--version"}, "").version);
  EXPECT_FALSE(parse({"--seed", "2"}).answersOnly());
}

TEST(ParseOptions, RefusesAWrongModelEvenIfOnlyHelpIsAskedFor) {
  EXPECT_THROW(static_cast<void>(parse({"--model", "asleep", "--help"})), UsageError);
}

TEST(ParseOptions, RefusesWhatItDoesNotKnow) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"--colour"}, "'--colour'"},
      {{"--seed", "1", "-x"}, "'-x'"},
      {{"--speed"}, "'--speed' needs a value"},
      {{"--once=yes", "--play", "x"}, "'--once=yes'"},
      {{"COM1"}, "'COM1' is not an option"},
      {{"--seed", "1", "COM1"}, "'COM1' is not an option"},
      {{"--model", "asleep"}, "unknown model 'asleep'"},
      {{"--fault", "smoke"}, "unknown fault 'smoke'"},
      {{"--speed", "0"}, "the speed must be a number from 0.001 to 1000"},
      {{"--port", "0"}, "the number of the port must be a whole number from 1 to 255"},
      {{"--port", "COM1"}, "the number of the port"},
      {{"--seed", "-1"}, "the seed must be"},
      {{"--link", ""}, "--link needs a file name"},
      {{"--link", "a", "--port", "2"}, "either --link or --port"},
      {{"--play", "a", "--model", "flat"}, "either --play or --model"},
      {{"--play", "a", "--seed", "2"}, "either --play or --model"},
      {{"--once"}, "--once needs --play"},
      {{"--pace", "slow"}, "unknown pace 'slow'; the paces are uart, spread, frames"},
      {{"--chunk", "0"}, "the bytes of a chunk"},
      {{"--latency", "1001"}, "the milliseconds of the latency"},
      {{"--pace", "frames", "--chunk", "8"}, "--chunk and --latency need --pace uart or spread"},
      {{"--replug", "2"}, "--replug needs --fault hang-up-after"},
      {{"--replug", "-2", "--fault", "hang-up-after=1"}, "must be a number from 0 to 86400"}};
  for (const auto& [arguments, message] : cases)
    EXPECT_NE(refusalOf(arguments).find(message), std::string::npos) << refusalOf(arguments) << " lacks " << message;
}

TEST(ParseOptions, NeedsALinkWhereThereIsNoDataFolder) {
  EXPECT_THROW((void)parseOptions({}, ""), UsageError);
  EXPECT_EQ(parseOptions({"--link", "port"}, "").link, "port");
}

TEST(HelpText, NamesEveryOptionModelAndFault) {
  const std::string help = helpText();
  for (const auto* word : {"--port N",       "--link PATH",    "--model MODEL",
                           "--seed N",       "--play FILE",    "--once",
                           "--speed X",      "--pace PACE",    "--chunk N",
                           "--latency MS",   "cut-frames",     "--replug SECONDS",
                           "--log FILE",     "--help",         "eyes-closed",
                           "eyes-open",      "blinks",         "mains-hum",
                           "drowsy",         "saturated",      "flat",
                           "no-answer",      "wrong-answer",   "late-answer=MS",
                           "split-answer",   "repeat-answer",  "test-keeps-streaming",
                           "ignore-start=N", "ignore-stop",    "silent-after=N",
                           "lose-byte=N",    "double-byte=N",  "flip-byte=N",
                           "flood",          "hang-up-after=N"})
    EXPECT_NE(help.find(word), std::string::npos) << word;
}

class InstrumentDataFolder : public testing::Test {
 protected:
  static void set(const char* name, const char* value) {
    if (value == nullptr)
      ::unsetenv(name);
    else
      ::setenv(name, value, 1);
  }
  static std::string kept(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
  }
  ~InstrumentDataFolder() override {
    set("HOME", home_.empty() ? nullptr : home_.c_str());
    set("XDG_DATA_HOME", data_.empty() ? nullptr : data_.c_str());
  }
  std::string home_ = kept("HOME"), data_ = kept("XDG_DATA_HOME");
};

TEST_F(InstrumentDataFolder, FollowsTheUsersEnvironment) {
  struct Case {
    const char *data, *home, *expected;
  };
  for (const auto& [data, home, expected] :
       {Case{"/data", "/home/u", "/data/korvinel"}, Case{nullptr, "/home/u", "/home/u/.local/share/korvinel"},
        Case{"relative", "/home/u", "/home/u/.local/share/korvinel"}, Case{nullptr, nullptr, ""}}) {
    set("XDG_DATA_HOME", data);
    set("HOME", home);
    EXPECT_EQ(userDataFolder(), expected);
  }
}

}  // namespace
}  // namespace korvinel::instrument
