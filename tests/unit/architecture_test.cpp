#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// Checks which folders of src may include which.
namespace korvinel {
namespace {

namespace fs = std::filesystem;

struct Include {
  std::string from;  ///< path below src
  std::string what;
  bool quoted;
};

std::vector<Include> includesOf(const fs::path& file, const fs::path& root) {
  static const std::regex line(R"re(^\s*#\s*include\s*([<"])([^>"]+)[>"])re");
  std::vector<Include> includes;
  std::ifstream stream(file);
  std::smatch match;
  for (std::string text; std::getline(stream, text);)
    if (std::regex_search(text, match, line))
      includes.push_back({fs::relative(file, root).generic_string(), match[2], match[1] == "\""});
  return includes;
}

std::vector<Include> allIncludes() {
  const fs::path root = fs::path(KORVINEL_SOURCE_DIR) / "src";
  std::vector<Include> all;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    for (Include& include : includesOf(entry.path(), root)) all.push_back(std::move(include));
  }
  return all;
}

/// The project's headers that including `header` reads, beside itself.
std::set<std::string> headersBehind(const std::string& header) {
  const fs::path root = fs::path(KORVINEL_SOURCE_DIR) / "src";
  std::set<std::string> reached;
  for (std::vector<std::string> waiting = {header}; !waiting.empty();) {
    const std::string next = waiting.back();
    waiting.pop_back();
    for (const Include& include : includesOf(root / next, root))
      if (include.quoted && reached.insert(include.what).second) waiting.push_back(include.what);
  }
  return reached;
}

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

/// The folders (or single headers) that a file may include besides its own folder.
std::set<std::string> allowedFrom(const Include& include) {
  const std::string folder = folderOf(include.from);
  if (folder == "values") return {};
  if (folder == "eeg") return {"values"};
  if (folder == "platform") return {"values"};
  if (folder == "platform/page") return {"values", "platform", "platform/qt"};
  if (folder.starts_with("platform/")) return {"values", "platform"};
  if (include.from == "frame/main_fields.h" || include.from == "frame/main_state.h" ||
      include.from == "frame/main_window.h" || include.from == "frame/program_values.h")
    return {"values", "platform"};
  if (folder == "guidance") return {"values", "eeg", "platform", "frame", "recording", "report"};
  if (folder == "wiring") return {"values", "eeg", "platform", "frame", "recording", "report"};
  if (folder == "app")
    return {"values", "eeg",     "platform",  "platform/qt", "platform/disk", "platform/posix", "platform/windows",
            "frame",  "display", "recording", "report",      "wiring",        "guidance"};
  return {"values", "eeg", "platform", "frame"};
}

bool isStandardHeader(const std::string& name) {
  return name.find_first_of("./") == std::string::npos && std::islower(static_cast<unsigned char>(name.front())) != 0;
}

TEST(House, ArrowsPointOneWay) {
  const auto includes = allIncludes();
  ASSERT_GT(includes.size(), 100U);
  for (const Include& include : includes) {
    if (!include.quoted) continue;
    const std::string target = folderOf(include.what);
    const bool allowed = target == folderOf(include.from) || allowedFrom(include).contains(target);
    EXPECT_TRUE(allowed) << include.from << " looks at " << include.what;
  }
}

TEST(House, OnlyItsOwnFoldersKnowTheToolkitAndTheSystem) {
  for (const Include& include : allIncludes()) {
    if (include.quoted) continue;
    const std::string folder = folderOf(include.from);
    const bool toolkit = folder == "platform/qt" || folder == "platform/page" || folder == "app";
    const bool system = folder == "platform/posix" || folder == "platform/windows";
    if (include.what.starts_with('Q')) {
      EXPECT_TRUE(toolkit) << include.from << " includes <" << include.what << ">";
    } else if (!isStandardHeader(include.what)) {
      EXPECT_TRUE(system) << include.from << " includes <" << include.what << ">";
    }
  }
}

TEST(House, UmbrellaHeadersAreNotUsed) {
  const std::set<std::string> umbrellas = {"QtWidgets", "QtCore", "QtGui", "QtPrintSupport", "bits/stdc++.h"};
  for (const Include& include : allIncludes()) EXPECT_FALSE(umbrellas.contains(include.what)) << include.from;
}

/// They are read in most compilations: what they only refer to is declared in them, not included.
TEST(House, RecordsAreLightToInclude) {
  const std::pair<const char*, std::set<std::string>> records[] = {
      {"frame/main_state.h",
       {"frame/main_fields.h", "platform/colour.h", "values/bounded.h", "values/fixed.h", "values/int16.h"}},
      {"report/report_state.h", {"platform/colour.h", "values/bounded.h", "values/fixed.h", "values/int16.h"}},
  };
  for (const auto& [record, needed] : records) EXPECT_EQ(headersBehind(record), needed) << record;
}

TEST(House, FilesStayShortEnoughToRead) {
  const fs::path root = fs::path(KORVINEL_SOURCE_DIR) / "src";
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
    std::ifstream stream(entry.path());
    const auto lines = std::count(std::istreambuf_iterator<char>(stream), {}, '\n');
    EXPECT_LE(lines, 500) << entry.path();
  }
}

}  // namespace
}  // namespace korvinel
