#include "instrument/command_recogniser.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace korvinel::instrument {
namespace {

std::vector<Command> commandsIn(std::string_view bytes) {
  CommandRecogniser recogniser;
  std::vector<Command> found;
  for (const char byte : bytes)
    if (const auto command = recogniser.take(byte).command) found.push_back(*command);
  return found;
}

std::string ignoredIn(std::string_view bytes) {
  CommandRecogniser recogniser;
  std::string ignored;
  for (const char byte : bytes) ignored += recogniser.take(byte).ignored;
  return ignored;
}

const std::string test = "TEST\xC0";
const std::string start = "S\x01\x04\x78\x41\x08\x42\xA5";
const std::string stop = "\xFF\x01";

using Commands = std::vector<Command>;

TEST(CommandRecogniser, KnowsTheThreeCommandsByTheirExactBytes) {
  const auto bytes = [](std::initializer_list<int> codes) {
    std::string text;
    for (const int code : codes) text += static_cast<char>(code);
    return text;
  };
  EXPECT_EQ(commandsIn(bytes({84, 69, 83, 84, 192})), Commands{Command::test});
  EXPECT_EQ(commandsIn(bytes({83, 1, 4, 120, 65, 8, 66, 165})), Commands{Command::start});
  EXPECT_EQ(commandsIn(bytes({255, 1})), Commands{Command::stop});
}

TEST(CommandRecogniser, RefusesEveryOtherChecksum) {
  for (const std::string& command : {test, start, stop}) {
    for (int checksum = 0; checksum < 256; ++checksum) {
      std::string altered = command;
      altered.back() = static_cast<char>(checksum);
      EXPECT_EQ(commandsIn(altered).size(), altered == command ? 1U : 0U) << command << " with " << checksum;
    }
  }
}

TEST(CommandRecogniser, RefusesAStartWithAnyOtherParameter) {
  for (std::size_t place = 1; place < 7; ++place) {
    std::string altered = start;
    ++altered[place];
    altered.back() = static_cast<char>(closingChecksum(altered.substr(0, 7)));
    EXPECT_EQ(commandsIn(altered), Commands{}) << "parameter " << place;
  }
}

TEST(CommandRecogniser, FindsACommandAfterGarbage) {
  const std::string garbage[] = {"x",
                                 "TES",
                                 "TEST",
                                 "TESTTES",
                                 "S",
                                 "S\x01\x04",
                                 "\xFF",
                                 "\xFF\xFF",
                                 "TTT",
                                 "SS",
                                 std::string(5000, 'T'),
                                 std::string(3, '\0')};
  for (const std::string& before : garbage) {
    EXPECT_EQ(commandsIn(before + test), Commands{Command::test}) << before;
    EXPECT_EQ(commandsIn(before + start), Commands{Command::start}) << before;
    EXPECT_EQ(commandsIn(before + stop), Commands{Command::stop}) << before;
  }
}

TEST(CommandRecogniser, FindsCommandsThatFollowWithoutAGap) {
  EXPECT_EQ(commandsIn(test + start + stop + start),
            (Commands{Command::test, Command::start, Command::stop, Command::start}));
}

TEST(CommandRecogniser, FindsTheStartInsideABrokenTest) {
  // "TES": the third byte of a test command may be the first of a start command.
  EXPECT_EQ(commandsIn("TE" + start), Commands{Command::start});
}

TEST(CommandRecogniser, HandsBackEveryByteThatBelongsToNoCommand) {
  const std::pair<std::string, std::string> cases[] = {{"abc", "abc"},       {"TES", ""},
                                                       {"TESx", "TESx"},     {"ab" + test, "ab"},
                                                       {"TE" + start, "TE"}, {stop + "\x01", "\x01"}};
  for (const auto& [bytes, ignored] : cases) EXPECT_EQ(ignoredIn(bytes), ignored) << bytes;
}

TEST(ClosingChecksum, MakesTheSumZeroModulo256) {
  EXPECT_EQ(closingChecksum(""), 0);
  EXPECT_EQ(closingChecksum("\x80\x80"), 0);
  EXPECT_EQ(closingChecksum("TEST"), 192);
}

}  // namespace
}  // namespace korvinel::instrument
