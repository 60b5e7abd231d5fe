#pragma once

#include <QMainWindow>
#include <functional>
#include <vector>

#include "display/window_geometry.h"
#include "frame/main_window.h"

namespace korvinel {

/// The main window on the screen: every control and surface at its place in the window's plan, scaled to the client
/// area.
class MainWindowView : public QMainWindow {
 public:
  /// `mayClose`: asked when the user closes the window; false keeps it open.
  MainWindowView(MainWindow& model, std::function<bool()> mayClose);

  void showFitting();  ///< at the plan's own size, or filling a screen that is too small for it

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Place {
    QWidget* widget;
    geometry::Rect rect;
  };

  void addSurfaces(MainWindow& model);
  void addPanel(MainWindow& model);
  void addButtons(MainWindow& model);
  void put(QWidget* widget, const geometry::Rect& rect) { places_.push_back({widget, rect}); }
  void layOut();

  std::function<bool()> mayClose_;
  QWidget* ground_ = nullptr;
  std::vector<Place> places_;
};

}  // namespace korvinel
