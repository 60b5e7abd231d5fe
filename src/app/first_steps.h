#pragma once

#include <QPushButton>
#include <functional>
#include <string>
#include <tuple>

#include "app/first_page.h"

namespace korvinel {

struct MainState;
namespace platform {
class PlanGround;
}

/// When the page of the first steps is shown: at the start until it is dismissed, and whenever its button is pressed.
/// It goes as soon as anything begins, so that it never covers a signal.
class FirstSteps {
 public:
  /// `onNever`: called when the operator does not want to see it again at the start. All arguments must outlive it.
  FirstSteps(const MainState& state, platform::PlanGround& ground, std::function<void()> onNever);

  /// The button that shows the page.
  [[nodiscard]] QPushButton* button() const { return button_; }

  void showAtStart();
  void refresh();

 private:
  using Shown = std::tuple<bool, std::string, int, bool>;
  [[nodiscard]] bool isIdle() const;
  [[nodiscard]] Shown shown() const;
  void present();

  const MainState& state_;
  FirstPage* page_;
  QPushButton* button_;
  Shown whenPresented_;  ///< what the surfaces under the page showed
};

}  // namespace korvinel
