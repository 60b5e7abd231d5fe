#pragma once

namespace korvinel {

/// The kind of a box whose text goes into a data file or its name.
enum class EntryKind { text, fileName };

}  // namespace korvinel
