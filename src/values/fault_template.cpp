#include "values/fault_template.h"

namespace korvinel {
namespace {

constexpr std::string_view reasonMark = "<reason>";

std::string_view factAt(std::string_view mark, const Facts& facts, std::string_view reason) {
  if (mark == "<path>") return facts.path;
  if (mark == "<newPath>") return facts.newPath;
  if (mark == "<text>") return facts.text;
  return reason;
}

std::string_view withoutReason(std::string_view sentence) {
  return sentence.find(reasonMark) == std::string_view::npos ? sentence : sentence.substr(0, sentence.find(':'));
}

}  // namespace

std::string filled(const FaultTemplates& templates, const Facts& facts, std::string_view notOrdinary) {
  const std::string_view reason = facts.notOrdinary ? notOrdinary : facts.systemReason;
  std::string_view rest = templates[static_cast<std::size_t>(facts.cause)].sentence;
  if (reason.empty()) rest = withoutReason(rest);
  std::string text;
  // What is filled in is not searched again: a path may hold a mark.
  for (std::size_t begin = rest.find('<'); begin != std::string_view::npos; begin = rest.find('<')) {
    const std::size_t length = rest.find('>') + 1 - begin;
    text += rest.substr(0, begin);
    text += factAt(rest.substr(begin, length), facts, reason);
    rest.remove_prefix(begin + length);
  }
  return text += rest;
}

}  // namespace korvinel
