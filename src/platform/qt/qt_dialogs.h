#pragma once

#include <QDialog>

#include "platform/dialogs.h"
#include "platform/operation_edge.h"
#include "platform/path_notation.h"

namespace korvinel::platform {

/// Modal boxes over the active window.
class QtDialogs : public Dialogs {
 public:
  QtDialogs(const OperationEdge& edge, PathNotation paths) : edge_(edge), paths_(std::move(paths)) {}

  void notice(const std::string& text) override;
  Choice ask(const std::string& text, const std::string& title) override;
  std::string input(const std::string& prompt, const std::string& title, ScreenPosition position) override;
  std::string chooseFile(const std::string& directory, const std::string& filter) override;
  std::string chooseFolder(const std::string& title, const std::string& directory) override;

 private:
  int show(QDialog& dialog) const;

  const OperationEdge& edge_;
  PathNotation paths_;
};

/// "(*.QVD)|*.QVD|Tutti|*|" as the toolkit writes filters: "(*.QVD);;Tutti (*)".
[[nodiscard]] std::string toolkitFilter(const std::string& filter);

}  // namespace korvinel::platform
