#pragma once

#include <QAccessibleInterface>

namespace korvinel::platform {

/// Accessible lists of files for the toolkit's file dialog, for QAccessible::installFactory; null for every other
/// object.
///
/// The toolkit's own accessible cells exist until the program ends, each with an index into a model destroyed earlier,
/// which crashed the program if a screen reader had read a dialog. These cells hold only their position, and are
/// destroyed with their list.
[[nodiscard]] QAccessibleInterface* fileListAccess(const QString& className, QObject* object);

}  // namespace korvinel::platform
