#include "recording_tool/channel_choice.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

#include "recording_tool/tool_error.h"
#include "values/code_page.h"

namespace korvinel::tool {
namespace {

/// The electrode in a label, in upper case: "EEG F3-Ref" and "f3.." are F3.
std::string electrodeOf(const std::string& label) {
  std::string name = upperCase(label);
  if (name.starts_with("EEG ")) name.erase(0, 4);
  name.erase(std::find_if(name.begin(), name.end(), [](char c) { return c == '-' || c == '.' || c == ' '; }),
             name.end());
  return name;
}

std::string newerName(const std::string& electrode) {
  static const std::map<std::string, std::string> names = {{"T3", "T7"}, {"T4", "T8"}, {"T5", "P7"}, {"T6", "P8"}};
  const auto found = names.find(electrode);
  return found == names.end() ? electrode : found->second;
}

template <typename Matches>
std::optional<int> firstOf(const std::vector<std::string>& labels, Matches&& matches) {
  const auto found = std::find_if(labels.begin(), labels.end(), matches);
  if (found == labels.end()) return {};
  return static_cast<int>(found - labels.begin());
}

std::optional<int> signalOfNumber(const std::string& text, std::size_t signals) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (!whole || number < 1 || number > signals) return {};
  return static_cast<int>(number) - 1;
}

std::optional<int> signalOf(const std::vector<std::string>& labels, const std::string& wanted) {
  const std::string electrode = electrodeOf(wanted);
  auto signal = firstOf(labels, [&](const std::string& label) { return upperCase(label) == upperCase(wanted); });
  if (!signal) signal = firstOf(labels, [&](const std::string& label) { return electrodeOf(label) == electrode; });
  if (!signal)
    signal = firstOf(labels, [&](const std::string& label) { return electrodeOf(label) == newerName(electrode); });
  return signal ? signal : signalOfNumber(wanted, labels.size());
}

std::string joined(const std::vector<std::string>& labels) {
  std::string all;
  for (const std::string& label : labels) all += (all.empty() ? "" : ", ") + label;
  return all.empty() ? "none" : all;
}

}  // namespace

std::array<std::string, 4> parseChannels(const std::string& list) {
  std::array<std::string, 4> names;
  std::size_t begin = 0;
  std::size_t count = 0;
  for (; begin <= list.size() && count < 5; ++count) {
    const std::size_t end = std::min(list.find(',', begin), list.size());
    if (count < 4) names[count] = list.substr(begin, end - begin);
    begin = end + 1;
  }
  const bool named = std::none_of(names.begin(), names.end(), [](const std::string& name) { return name.empty(); });
  if (count != 4 || !named) throw UsageError("--channels needs four names, such as F3,F4,T5,T6");
  return names;
}

std::array<int, 4> chooseSignals(const std::string& file, const std::vector<std::string>& labels,
                                 const std::array<std::string, 4>& wanted) {
  std::array<int, 4> signals{};
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const auto signal = signalOf(labels, wanted[i]);
    if (!signal)
      throw ToolError(file, "has no channel " + wanted[i] + "; choose four by --channels from: " + joined(labels));
    signals[i] = *signal;
  }
  return signals;
}

}  // namespace korvinel::tool
