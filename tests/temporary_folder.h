#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace korvinel::platform {

/// A folder that is removed with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    const std::string name = "korvinel-" + std::to_string(std::random_device{}());
    path_ = (std::filesystem::temp_directory_path() / name).generic_string();
    std::filesystem::create_directory(path_);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

inline std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

inline void writeFile(const std::string& path, const std::string& content) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << content;
}

}  // namespace korvinel::platform
