#pragma once

#include <QAccessibleInterface>

namespace korvinel::platform {

/// What a screen reader learns of the lists of files in the toolkit's file dialog, for QAccessible::installFactory;
/// null for every other object.
///
/// The toolkit's own cells of such a list stay until the program ends, each with an index into a model that is gone by
/// then: whoever had a dialog read aloud got a crash. These cells know their place only, and go with their list.
[[nodiscard]] QAccessibleInterface* fileListAccess(const QString& className, QObject* object);

}  // namespace korvinel::platform
