#include "switch.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace korvinel_change {

namespace {

unsigned char ownPlaces[mostPlaces];

/// Shared with the programs that a test starts: what they reach counts as the test's.
unsigned char* sharedPlaces(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (file < 0 || ::ftruncate(file, mostPlaces) != 0) std::abort();
  void* shared = ::mmap(nullptr, mostPlaces, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  ::close(file);
  if (shared == MAP_FAILED) std::abort();
  return static_cast<unsigned char*>(shared);
}

}  // namespace

constinit Run run;

void begin() {
  if (const char* chosen = std::getenv("KORVINEL_CHANGE")) run.chosen = std::atoi(chosen);
  const char* reach = std::getenv("KORVINEL_REACH");
  run.reached = reach == nullptr ? ownPlaces : sharedPlaces(std::string(reach) + ".map");
}

}  // namespace korvinel_change
