#pragma once

namespace korvinel::tool {

struct ExportOptions {
  bool anonymous = false;  ///< leaves the person out
  bool force = false;      ///< replaces an existing output
};

}  // namespace korvinel::tool
