#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/interrupted_view.h"
#include "frame/interrupted.h"

namespace korvinel {

struct MainState;

/// Brings up the examinations that a crash has interrupted: at start and after each acquisition.
class InterruptedExaminations {
 public:
  /// `onChange`: called when the reminder may have changed. All arguments must outlive it.
  InterruptedExaminations(MainState& state, QWidget* parent, std::function<void()> onChange);

  [[nodiscard]] InterruptedView* view() { return &view_; }
  void refresh();                              ///< follows the record; does nothing during an acquisition
  [[nodiscard]] std::string reminder() const;  ///< for the status line, once the notice has been put off; "" = nothing

 private:
  void look();
  void show(const std::string& before = "");
  void recover();
  void putOff();
  [[nodiscard]] std::string lockNote() const;

  MainState& state_;
  std::function<void()> onChange_;
  InterruptedView view_;
  std::vector<Interrupted> found_;
  bool isToLook_ = false;   ///< the folder may hold more than was found
  std::size_t putOff_ = 0;  ///< how many the user has put off
};

}  // namespace korvinel
