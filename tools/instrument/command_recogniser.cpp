#include "instrument/command_recogniser.h"

#include <algorithm>
#include <array>
#include <utility>

namespace korvinel::instrument {
namespace {

struct Entry {
  Command command;
  std::string_view name;
  std::string_view bytes;
};

constexpr std::array<Entry, 3> commands{{
    {Command::test, "test", "TEST\xC0"},
    {Command::start, "start", "S\x01\x04\x78\x41\x08\x42\xA5"},
    {Command::stop, "stop", "\xFF\x01"},
}};

const Entry& entryOf(Command command) {
  return *std::find_if(commands.begin(), commands.end(), [&](const Entry& entry) { return entry.command == command; });
}

bool beginsACommand(std::string_view bytes) {
  return std::any_of(commands.begin(), commands.end(),
                     [&](const Entry& entry) { return entry.bytes.starts_with(bytes); });
}

std::optional<Command> wholeCommand(std::string_view bytes) {
  const auto* entry =
      std::find_if(commands.begin(), commands.end(), [&](const Entry& candidate) { return candidate.bytes == bytes; });
  return entry == commands.end() ? std::nullopt : std::optional(entry->command);
}

}  // namespace

std::string_view nameOf(Command command) { return entryOf(command).name; }

std::string_view bytesOf(Command command) { return entryOf(command).bytes; }

CommandRecogniser::Step CommandRecogniser::take(char byte) {
  Step step;
  pending_ += byte;
  while (!beginsACommand(pending_)) {  // ends at the latest with nothing pending: every command begins with nothing
    step.ignored += pending_.front();
    pending_.erase(0, 1);
  }
  step.command = wholeCommand(pending_);
  if (step.command) pending_.clear();
  return step;
}

}  // namespace korvinel::instrument
