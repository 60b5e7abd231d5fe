#pragma once

namespace korvinel::platform {

/// The windows besides the main window, all non-modal. Called on the user-interface thread.
struct CompanionWindows {
  virtual ~CompanionWindows() = default;
  virtual void showReport() = 0;  ///< creates the report window and loads its report, or raises the open one
  virtual void closeReport() = 0;
  virtual void showComments() = 0;  ///< creates the comment window, or raises the open one
  virtual void showMain() = 0;
};

}  // namespace korvinel::platform
