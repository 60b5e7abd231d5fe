#pragma once

#include <QString>
#include <functional>

#include "platform/path_notation.h"

class QMessageBox;

namespace korvinel::platform {

/// Opens a folder in the desktop's own window for files, if it has one.
void openFolder(const QString& folder);

/// For a box in whose text some lines are paths of the program: adds the true place of each on this machine, which can
/// be copied, and a button "Mostra" that opens its folder. The box's text and its own buttons stay as they are.
void addPlacesOnDisk(QMessageBox& box, const PathNotation& paths,
                     const std::function<void(const QString& folder)>& open = openFolder);

}  // namespace korvinel::platform
