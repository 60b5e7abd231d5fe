#include "platform/disk/installation.h"

#include <filesystem>
#include <random>
#include <utility>

#include "platform/folders.h"
#include "platform/host_paths.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

namespace fs = std::filesystem;

void writeDefaultFile(Files& files, const fs::path& path, const std::string& content) {
  const auto file = files.create(path.string());
  file->write(content);
  file->synchronise();
}

void fillRoot(Files& files, const fs::path& root) {
  makeFolders((root / "DATAFILE").string());
  writeDefaultFile(files, root / "Instal8s.val", defaultSettings());
  writeDefaultFile(files, root / "Factors.val", defaultFactors());
}

}  // namespace

std::string defaultSettings() { return "\"Korvinel\",\"Ita\",1,0,0,0,0\r\n\"\",\"\"\r\n"; }

std::string defaultFactors() {
  constexpr int factors = 64;
  constexpr int factorsPerLine = 8;
  std::string text;
  for (int i = 1; i <= factors; ++i) text += i % factorsPerLine == 0 ? "1\r\n" : "1,";
  return text;
}

void installRootWhenAbsent(Files& files, const std::string& dataFolder) {
  const fs::path root = hostPath(dataFolder, "C:\\QUARVEL5");
  if (fs::symlink_status(root).type() != fs::file_type::not_found) return;
  // Under another name first, so that an existing root is always complete, even if this is interrupted.
  const fs::path unfinished = root.string() + ".new-" + std::to_string(std::random_device{}());
  try {
    if (!dataFolder.empty()) makeFolders(dataFolder + "/ports");
    fillRoot(files, unfinished);
    fs::rename(unfinished, root);
  } catch (const std::exception& cause) {
    std::error_code ignored;
    fs::remove_all(unfinished, ignored);
    Facts facts = factsOf(cause);
    facts.installation = root.string();
    throw RuntimeError(std::move(facts));
  }
}

}  // namespace korvinel::platform
