#pragma once

#include <QPushButton>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/notes_panel.h"
#include "app/strip_marks.h"
#include "platform/qt/plan_ground.h"

namespace korvinel {

struct MainState;

/// The notes of the examination at hand: the list over the message panel, the button that shows and hides it, and the
/// marks over the time strip.
class NotesGuidance {
 public:
  /// `ground` owns the widgets. The state must outlive it.
  NotesGuidance(MainState& state, platform::PlanGround& ground);

  void setQuickNotes(const std::vector<std::string>& notes) { panel_->setQuickNotes(notes); }
  std::function<void(const std::vector<std::string>& notes)> onQuickNotesEdited;

  void refresh();

 private:
  void tie();
  void place(guidance::NotesPlace place);
  void moveSliderTo(int block);
  void addQuickNote(const std::string& text);

  MainState& state_;
  platform::PlanGround& ground_;
  NotesPanel* panel_;
  QPushButton* button_;
  StripMarks* marks_;
  guidance::NotesPlace automatic_{};
  guidance::NotesPlace placed_{};
  int examination_ = 0;
  std::optional<bool> chosen_;  ///< by the button, until the examination or what the panel has to say changes
};

}  // namespace korvinel
