#include "instrument/faults.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>

#include "instrument/number_text.h"

namespace korvinel::instrument {
namespace {

constexpr std::int64_t mostBlocks = 1'000'000'000;
constexpr std::int64_t mostBytes = 1024 * mostBlocks;

std::int64_t blocks(std::string_view value) { return wholeNumberIn(value, 0, mostBlocks, "the number of blocks"); }
std::int64_t byteNumber(std::string_view value) { return wholeNumberIn(value, 1, mostBytes, "the number of a byte"); }

struct Switch {
  std::string_view name;
  void (*apply)(Faults&);
};

constexpr std::array<Switch, 8> switches{{
    {"no-answer", [](Faults& faults) { faults.noAnswer = true; }},
    {"wrong-answer", [](Faults& faults) { faults.wrongAnswer = "NO"; }},
    {"split-answer", [](Faults& faults) { faults.splitAnswer = true; }},
    {"repeat-answer", [](Faults& faults) { faults.repeatAnswer = true; }},
    {"test-keeps-streaming", [](Faults& faults) { faults.testKeepsStreaming = true; }},
    {"ignore-stop", [](Faults& faults) { faults.ignoreStop = true; }},
    {"cut-frames", [](Faults& faults) { faults.cutFrames = true; }},
    {"flood", [](Faults& faults) { faults.flood = true; }},
}};

struct Setting {
  std::string_view name;
  void (*apply)(Faults&, std::string_view value);
};

constexpr std::array<Setting, 8> settings{{
    {"wrong-answer",
     [](Faults& faults, std::string_view value) {
       if (value.empty()) throw std::invalid_argument("the wrong answer must not be empty; see the fault no-answer");
       faults.wrongAnswer = value;
     }},
    {"late-answer",
     [](Faults& faults, std::string_view value) {
       faults.lateAnswerMs = wholeNumberIn(value, 0, 3'600'000, "the milliseconds of a late answer");
     }},
    {"ignore-start",
     [](Faults& faults, std::string_view value) {
       faults.ignoredStarts = wholeNumberIn(value, 0, mostBlocks, "the number of ignored start commands");
     }},
    {"silent-after", [](Faults& faults, std::string_view value) { faults.silentAfterBlocks.push_back(blocks(value)); }},
    {"hang-up-after",
     [](Faults& faults, std::string_view value) { faults.hangUpAfterBlocks.push_back(blocks(value)); }},
    {"lose-byte", [](Faults& faults, std::string_view value) { faults.lostBytes.push_back(byteNumber(value)); }},
    {"double-byte", [](Faults& faults, std::string_view value) { faults.doubledBytes.push_back(byteNumber(value)); }},
    {"flip-byte", [](Faults& faults, std::string_view value) { faults.flippedBytes.push_back(byteNumber(value)); }},
}};

template <typename Table>
auto named(const Table& table, std::string_view name) {
  const auto entry = std::find_if(table.begin(), table.end(), [&](const auto& each) { return each.name == name; });
  return entry == table.end() ? std::nullopt : std::optional(*entry);
}

[[noreturn]] void refuse(std::string_view name) {
  const std::string quoted = std::string("'").append(name).append("'");
  if (named(settings, name)) throw std::invalid_argument("the fault " + quoted + " needs a value: NAME=VALUE");
  if (named(switches, name)) throw std::invalid_argument("the fault " + quoted + " takes no value");
  std::string names;
  for (const Switch& each : switches) names += std::string(each.name) + ", ";
  for (const Setting& each : settings) names += std::string(each.name) + "=..., ";
  throw std::invalid_argument("unknown fault " + quoted + "; the faults are " + names.substr(0, names.size() - 2));
}

bool contains(const std::vector<std::int64_t>& numbers, std::int64_t number) {
  return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

}  // namespace

void addFault(Faults& faults, std::string_view text) {
  const auto equals = text.find('=');
  const std::string_view name = text.substr(0, equals);
  if (equals == std::string_view::npos) {
    const auto found = named(switches, name);
    if (!found) refuse(name);
    return found->apply(faults);
  }
  const auto found = named(settings, name);
  if (!found) refuse(name);
  found->apply(faults, text.substr(equals + 1));
}

std::string onTheWire(const Faults& faults, std::int64_t number, char byte) {
  if (contains(faults.lostBytes, number)) return {};
  if (contains(faults.flippedBytes, number)) byte = static_cast<char>(~byte);
  return std::string(contains(faults.doubledBytes, number) ? 2 : 1, byte);
}

}  // namespace korvinel::instrument
