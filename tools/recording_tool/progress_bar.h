#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace korvinel::tool {

/// A progress bar with the time left, on standard error; nothing unless that is a terminal.
class ProgressBar {
 public:
  explicit ProgressBar(int total);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void show(int finished);

 private:
  int total_;
  bool watched_;
  std::size_t longest_ = 0;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

/// "[#####.....] 120/240  0:35 left"
[[nodiscard]] std::string progressText(int finished, int total, double secondsSoFar);

}  // namespace korvinel::tool
