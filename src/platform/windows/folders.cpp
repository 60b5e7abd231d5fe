#include "platform/folders.h"

#include <filesystem>

#include "platform/windows/wide_text.h"

namespace korvinel::platform {

void makeFolders(const std::string& path) { std::filesystem::create_directories(wideFromUtf8(path)); }

void admitWhomTheFolderAdmits(const std::string&) {}  // it has them already

}  // namespace korvinel::platform
