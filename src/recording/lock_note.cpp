#include "recording/lock_note.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace korvinel {
namespace {

/// Removes the text up to the mark, and the mark, from the front, and returns it; none if the mark is not there.
std::optional<std::string> takeUpTo(std::string_view& rest, std::string_view mark) {
  const std::size_t end = rest.find(mark);
  if (end == std::string_view::npos) return std::nullopt;
  std::string taken(rest.substr(0, end));
  rest.remove_prefix(end + mark.size());
  return taken;
}

}  // namespace

std::string lockNote(const platform::Identity& self, const std::string& second) {
  return "utente " + self.user + ", computer " + self.computer + ", processo " + std::to_string(self.process) + ",\r" +
         second;
}

std::optional<LockHolder> holderIn(const std::string& note) {
  std::string_view rest = note;
  const auto nothing = takeUpTo(rest, "utente ");
  const auto user = takeUpTo(rest, ", computer ");
  const auto computer = takeUpTo(rest, ", processo ");
  const auto process = takeUpTo(rest, ",\r");
  if (!nothing || !nothing->empty() || !user || !computer || !process) return std::nullopt;
  LockHolder holder{{*user, *computer, 0}, "", ""};
  const char* end = process->data() + process->size();
  const auto parsed = std::from_chars(process->data(), end, holder.self.process);
  if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
  const auto before = takeUpTo(rest, "dalle ");
  const auto since = takeUpTo(rest, " del ");
  if (before && before->empty() && since) holder.since = *since, holder.day = rest;
  return holder;
}

}  // namespace korvinel
