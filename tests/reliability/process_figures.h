#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace korvinel {

/// Resident memory of this process in kilobytes.
inline long residentKilobytes() {
  std::ifstream file("/proc/self/statm");
  long size = 0, resident = 0;
  file >> size >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

inline long openDescriptors() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return std::distance(begin(all), end(all));
}

}  // namespace korvinel
