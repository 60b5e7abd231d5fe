#include "recording_tool/host_files.h"

#include <filesystem>

#include "recording_tool/fault_text.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"

namespace korvinel::tool {
namespace {

namespace fs = std::filesystem;

void requireOrdinaryFile(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(pathOf(path), error);
  if (!fs::exists(status))
    throw ToolError(path, "cannot be read: " + (error ? error.message() : "there is no such file"));
  if (!fs::is_regular_file(status)) throw ToolError(path, "cannot be read: it is not an ordinary file");
}

}  // namespace

std::unique_ptr<platform::InputFile> openInput(const std::string& path) {
  requireOrdinaryFile(path);
  try {
    return platform::hostFiles("")->openForReading(absolutePath(path));
  } catch (const RuntimeError& fault) {
    throw ToolError(path, "cannot be read: " + reasonOf(fault));
  }
}

std::string readAll(const std::string& path, std::int64_t most) {
  const auto file = openInput(path);
  std::string bytes;
  try {
    while (!file->atEnd()) {
      if (file->position() >= most)
        throw ToolError(path, "is too long, it has more than " + std::to_string(most) + " bytes");
      bytes += static_cast<char>(static_cast<unsigned char>(file->take()));
    }
  } catch (const RuntimeError& fault) {
    throw ToolError(path, "cannot be read: " + reasonOf(fault) + ", at byte " + std::to_string(file->position()));
  }
  return bytes;
}

std::string absolutePath(const std::string& path) { return utf8Of(fs::absolute(pathOf(path)).lexically_normal()); }

bool isSameFile(const std::string& first, const std::string& second) {
  std::error_code error;
  return fs::equivalent(pathOf(first), pathOf(second), error) && !error;
}

}  // namespace korvinel::tool
