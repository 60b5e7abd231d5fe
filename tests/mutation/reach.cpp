#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "switch.h"

// Linked into the test programs of the campaign's build. With KORVINEL_REACH it writes a line for each test: its name,
// its milliseconds of processor time, and the places that it has reached; "*" stands for static objects, which every
// test depends on.
namespace {

using korvinel_change::mostPlaces;
using korvinel_change::run;

class Reach : public testing::EmptyTestEventListener {
 public:
  explicit Reach(const char* path) : file_(std::fopen(path, "w")) {
    if (file_ == nullptr) std::abort();
  }

  void OnTestProgramStart(const testing::UnitTest&) override { write("*", 0); }
  void OnTestStart(const testing::TestInfo&) override {
    clear();
    start_ = processorTime();
  }
  void OnTestEnd(const testing::TestInfo& info) override {
    const std::string name = std::string(info.test_suite_name()) + "." + info.name();
    write(name.c_str(), processorTime() - start_);
  }

 private:
  /// Milliseconds of processor time so far, that of programs that have been started and have ended included: unlike the
  /// clock's, it is the same on a busy machine.
  static long long processorTime() {
    long long sum = 0;
    for (const int whose : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
      rusage used{};
      ::getrusage(whose, &used);
      for (const timeval& time : {used.ru_utime, used.ru_stime}) sum += 1000LL * time.tv_sec + time.tv_usec / 1000;
    }
    return sum;
  }

  static void clear() {
    if (run.reached != nullptr) std::memset(run.reached, 0, mostPlaces);
  }

  void write(const char* name, long long milliseconds) {
    std::fprintf(file_, "%s\t%lld\t", name, milliseconds);
    for (int place = 0; run.reached != nullptr && place < mostPlaces; ++place)
      if (run.reached[place] != 0) std::fprintf(file_, " %d", place);
    std::fputc('\n', file_);
    std::fflush(file_);
    clear();
  }

  std::FILE* file_;
  long long start_ = 0;
};

[[maybe_unused]] const bool listening = [] {
  if (const char* path = std::getenv("KORVINEL_REACH"))
    testing::UnitTest::GetInstance()->listeners().Append(new Reach(path));
  return true;
}();

}  // namespace
