#pragma once

#include <QMainWindow>
#include <functional>
#include <optional>

#include "display/window_geometry.h"
#include "frame/main_window.h"
#include "guidance/settings.h"
#include "platform/qt/help.h"
#include "platform/qt/plan_ground.h"

class QVBoxLayout;

namespace korvinel {

/// The main window on the screen: every control and surface at its place in the window's plan, scaled to the client
/// area.
class MainWindowView : public QMainWindow {
 public:
  /// `mayClose`: asked when the user closes the window; false keeps it open.
  MainWindowView(MainWindow& model, std::function<bool()> mayClose);

  void addBelow(QWidget* bar);                         ///< under the plan, over the whole width
  platform::PlanGround& ground() { return *ground_; }  ///< holds everything of the plan
  /// Where it was last; else at the plan's own size, or filling a screen that is too small for it.
  void showFitting(const std::optional<guidance::WindowPlace>& remembered = {});

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // In the order of the Tab key
  void addSurfaces(MainWindow& model);
  void addLabels(MainWindow& model);
  void addTexts(MainWindow& model);
  void addScales(MainWindow& model);
  void addTimeStrip(MainWindow& model);
  void addButtons(MainWindow& model);
  void put(QWidget* widget, const geometry::Rect& rect, const platform::Help& help);

  std::function<bool()> mayClose_;
  platform::PlanGround* ground_ = nullptr;
  QVBoxLayout* column_ = nullptr;  ///< the plan, and under it what was added
};

}  // namespace korvinel
