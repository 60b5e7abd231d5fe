#pragma once

namespace korvinel {

constexpr auto dataFolder = "C:\\QUARVEL5\\DATAFILE\\";
constexpr auto sideFilePath = "C:\\QUARVEL5\\DATAFILE\\Tempor1.NOT";
constexpr auto temporaryPath = "C:\\QUARVEL5\\DATAFILE\\Tempor1.XXX";
/// Locked by the program that acquires into the folder. Its content names that program's user; the file is never
/// removed.
constexpr auto folderLockPath = "C:\\QUARVEL5\\DATAFILE\\Korvinel.lock";

}  // namespace korvinel
