#pragma once

#include <string>
#include <vector>

#include "frame/interrupted.h"

namespace korvinel::platform {
struct Files;
}

namespace korvinel {

/// Those of the data folder: the one last recorded into, then those set aside, the latest first. Left out are a
/// temporary file that another program may be recording into, files that cannot be read, and files of which a data file
/// with the same content exists. Never a fault.
/// `lockNote`: what a program that wants to record is shown meanwhile.
[[nodiscard]] std::vector<Interrupted> interruptedRecordings(platform::Files& files, const std::string& lockNote);

/// Makes the data file of an interrupted examination, under its own name or a free one, and then removes the temporary
/// file and its side file. The data file is written under another name, forced onto the disk, compared and renamed:
/// whatever happens meanwhile, the examination is whole in one of the two. Never throws a RuntimeError.
[[nodiscard]] Recovery recoverInterrupted(platform::Files& files, const std::string& temporaryFile,
                                          const std::string& lockNote);

}  // namespace korvinel
