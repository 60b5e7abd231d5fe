#pragma once

#include <QDialog>

#include "platform/dialogs.h"
#include "platform/operation_edge.h"

namespace korvinel::platform {

/// Modal boxes over the active window.
class QtDialogs : public Dialogs {
 public:
  /// `dataFolder`: where the program's drive C lies.
  QtDialogs(const OperationEdge& edge, std::string dataFolder) : edge_(edge), dataFolder_(std::move(dataFolder)) {}

  void notice(const std::string& text) override;
  Choice ask(const std::string& text, const std::string& title) override;
  std::string input(const std::string& prompt, const std::string& title, ScreenPosition position) override;
  std::string chooseFile(const std::string& directory, const std::string& filter) override;

 private:
  int show(QDialog& dialog) const;

  const OperationEdge& edge_;
  std::string dataFolder_;
};

/// "(*.QVD)|*.QVD|Tutti|*|" as the toolkit writes filters: "(*.QVD);;Tutti (*)".
[[nodiscard]] std::string toolkitFilter(const std::string& filter);

}  // namespace korvinel::platform
