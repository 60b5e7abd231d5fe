#pragma once

namespace korvinel {

constexpr auto dataFolder = "C:\\QUARVEL5\\DATAFILE\\";
constexpr auto sideFilePath = "C:\\QUARVEL5\\DATAFILE\\Tempor1.NOT";
constexpr auto temporaryPath = "C:\\QUARVEL5\\DATAFILE\\Tempor1.XXX";
/// Locked by whoever acquires into the folder. Its content tells who that is; the file itself stays.
constexpr auto folderLockPath = "C:\\QUARVEL5\\DATAFILE\\Korvinel.lock";

}  // namespace korvinel
