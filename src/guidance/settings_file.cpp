#include "guidance/settings_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <utility>

namespace korvinel::guidance {
namespace {

namespace fs = std::filesystem;

constexpr auto fileName = "impostazioni.txt";
constexpr auto unfinishedName = "impostazioni.txt.nuovo";
constexpr auto damagedName = "impostazioni-danneggiate.txt";
constexpr std::uintmax_t mostBytes = 65'536;

fs::path systemPath(const std::string& utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

/// None if the file cannot be read, or is too long for settings.
std::optional<std::string> contentOf(const fs::path& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error) || fs::file_size(path, error) > mostBytes || error) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), {}};
  if (!file) return std::nullopt;
  return bytes;
}

bool writeWhole(const fs::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  return file.good();
}

void makeFolder(const fs::path& folder) {
  std::error_code ignored;
  if (fs::create_directories(folder, ignored)) fs::permissions(folder, fs::perms::owner_all, ignored);
}

}  // namespace

SettingsFile::SettingsFile(std::string folder) : folder_(std::move(folder)) {
  std::error_code ignored;
  if (!folder_.empty() && fs::exists(systemPath(pathOf(fileName)), ignored)) read();
}

std::string SettingsFile::pathOf(const char* name) const { return folder_ + "/" + name; }

void SettingsFile::read() {
  const auto bytes = contentOf(systemPath(pathOf(fileName)));
  const auto found = bytes ? parseSettings(*bytes) : std::nullopt;
  if (!found) return setDamagedFileAside();
  settings = *found;
  onDisk_ = *bytes;
}

void SettingsFile::setDamagedFileAside() {
  std::error_code error;
  fs::rename(systemPath(pathOf(fileName)), systemPath(pathOf(damagedName)), error);
  notice_ = "Impostazioni illeggibili: valgono quelle iniziali.";
  if (!error) notice_ += std::string(" Il file di prima è ") + damagedName + ".";
}

bool SettingsFile::save() {
  if (folder_.empty()) return false;
  const std::string text = settingsText(settings);
  if (text == onDisk_) return true;
  makeFolder(systemPath(folder_));
  std::error_code error;
  const fs::path unfinished = systemPath(pathOf(unfinishedName));
  const bool written = writeWhole(unfinished, text);
  if (written) fs::rename(unfinished, systemPath(pathOf(fileName)), error);
  if (written && !error) return onDisk_ = text, true;
  fs::remove(unfinished, error);
  return false;
}

}  // namespace korvinel::guidance
