#include "recording_tool/progress_bar.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include "platform/console.h"

namespace korvinel::tool {
namespace {

std::string clockText(double seconds) {
  const auto whole = static_cast<long>(std::ceil(seconds));
  const std::string rest = std::to_string(whole % 60);
  return std::to_string(whole / 60) + ":" + (rest.size() < 2 ? "0" : "") + rest;
}

}  // namespace

std::string progressText(int finished, int total, double secondsSoFar) {
  constexpr int width = 40;
  const int filled = total == 0 ? width : width * finished / total;
  std::string text = "[" + std::string(static_cast<std::size_t>(filled), '#') +
                     std::string(static_cast<std::size_t>(width - filled), '.') + "] " + std::to_string(finished) +
                     "/" + std::to_string(total);
  if (finished > 0 && finished < total)
    text += "  " + clockText(secondsSoFar / finished * (total - finished)) + " left";
  return text;
}

ProgressBar::ProgressBar(int total) : total_(total), watched_(platform::errorsAreWatched()) {}

ProgressBar::~ProgressBar() {
  if (watched_) std::cerr << '\n';
}

void ProgressBar::show(int finished) {
  if (!watched_) return;
  const std::chrono::duration<double> soFar = std::chrono::steady_clock::now() - begin_;
  std::string text = progressText(finished, total_, soFar.count());
  longest_ = std::max(longest_, text.size());
  text.resize(longest_, ' ');  // covers the rest of a longer one
  std::cerr << '\r' << text << std::flush;
}

}  // namespace korvinel::tool
