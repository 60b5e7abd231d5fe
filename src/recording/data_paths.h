#pragma once

namespace korvinel {

constexpr auto dataFolder = "C:\\QUARVEL5\\DATAFILE\\";
constexpr auto sideFilePath = "C:\\QUARVEL5\\DATAFILE\\Tempor1.NOT";
constexpr auto temporaryPath = "C:\\QUARVEL5\\DATAFILE\\Tempor1.XXX";

}  // namespace korvinel
