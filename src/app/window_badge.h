#pragma once

#include <QIcon>

namespace korvinel {

/// The window's icon with a red disc in its corner, which marks a running recording in the task bar as well. `usual`:
/// the program's icon; an empty one is replaced by a plain ground.
[[nodiscard]] QIcon iconOfRecording(const QIcon& usual);

}  // namespace korvinel
