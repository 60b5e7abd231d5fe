#pragma once

#include <string>

namespace korvinel::platform {

/// Creates a folder and its missing parents. Unless they lie in a folder that several users share, they are for their
/// owner alone; on Windows each inherits the rights of its parent. An existing folder is left unchanged. A RuntimeError
/// (output) if one cannot be created.
void makeFolders(const std::string& path);

/// Gives a file that was made for its owner alone the rights that a new file of its folder has. Never a fault.
void admitWhomTheFolderAdmits(const std::string& path);

}  // namespace korvinel::platform
