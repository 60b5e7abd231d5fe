#include "app/notes_guidance.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

#include "display/window_geometry.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "guidance/quick_notes.h"
#include "platform/qt/help.h"
#include "platform/qt/qt_text.h"

namespace korvinel {
namespace {

using guidance::NotesPlace;

constexpr platform::Rect buttonPlace{882, 255, 132, 24};
constexpr int firstLine = 16;  // of the message panel, which stays readable above the list
constexpr platform::Rect wholePlace{geometry::messagePanel.x, geometry::messagePanel.y + firstLine,
                                    geometry::messagePanel.width, geometry::messagePanel.height - firstLine};
constexpr int lowerMessage = 150;  // of the panel's 258 units: the text of a note that was not kept
constexpr platform::Rect upperPlace{wholePlace.x, wholePlace.y, wholePlace.width,
                                    lowerMessage* geometry::messagePanel.height / 258 - firstLine - 2};

platform::PointerSurfaceView& stripOn(platform::PlanGround& ground) {
  return dynamic_cast<platform::PointerSurfaceView&>(*ground.findChild<QWidget*>("Striscia del tempo"));
}

}  // namespace

NotesGuidance::NotesGuidance(MainState& state, platform::PlanGround& ground)
    : state_(state),
      ground_(ground),
      panel_(new NotesPanel(&ground)),
      button_(new QPushButton),
      marks_(new StripMarks(&ground, stripOn(ground))) {
  auto* frame = new QWidget(&ground_);
  auto* inFrame = new QVBoxLayout(frame);
  inFrame->setContentsMargins(0, 0, 0, 0);
  inFrame->addWidget(button_);
  button_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  ground_.put(marks_, geometry::timeStrip);
  ground_.put(panel_, wholePlace);
  ground_.put(frame, buttonPlace);
  button_->setObjectName("Mostra le note");
  button_->setAccessibleDescription("Mostra le note");
  button_->setText("Note");
  button_->setCheckable(true);
  button_->setFocusPolicy(Qt::TabFocus);
  platform::explain(*button_, {"Mostra o nasconde l'elenco delle note, sopra il riquadro dei messaggi."});
  button_->hide();
  panel_->setQuickNotes(guidance::usualQuickNotes());
  tie();
}

void NotesGuidance::tie() {
  // Not only clicks: an assistive program toggles the button without one.
  QObject::connect(button_, &QPushButton::toggled, button_, [this](bool checked) {
    chosen_ = checked;
    refresh();
  });
  panel_->onChosen = [this](int block) { moveSliderTo(block); };
  panel_->onQuickNote = [this](const std::string& text) { addQuickNote(text); };
  panel_->onQuickNotesEdited = [this](const std::vector<std::string>& notes) {
    if (onQuickNotesEdited) onQuickNotesEdited(notes);
  };
}

void NotesGuidance::refresh() {
  const auto notes = guidance::noteList(state_);
  const NotesPlace automatic = guidance::notesPlace(state_);
  if (examination_ != state_.shared.examination || automatic != automatic_) chosen_.reset();
  examination_ = state_.shared.examination;
  automatic_ = automatic;
  const bool shown = !notes.empty() && chosen_.value_or(automatic != NotesPlace::none);
  panel_->showNotes(notes);
  panel_->setNoteOpen(guidance::noteIsOpen(state_));
  marks_->show(notes, guidance::marksAreMissing(state_));
  place(!shown ? NotesPlace::none : automatic == NotesPlace::none ? NotesPlace::whole : automatic);
  button_->setText(platform::toQt("Note: " + std::to_string(notes.size())));
  const QSignalBlocker quiet(button_);
  button_->setChecked(shown);
  button_->setVisible(!notes.empty());
}

/// A hidden list would leave the keyboard to whatever control comes next.
void NotesGuidance::place(NotesPlace place) {
  if (place == placed_) return;
  placed_ = place;
  if (place == NotesPlace::none && panel_->isAncestorOf(panel_->window()->focusWidget())) button_->setFocus();
  if (place != NotesPlace::none) ground_.put(panel_, place == NotesPlace::upper ? upperPlace : wholePlace);
  panel_->setVisible(place != NotesPlace::none);
}

void NotesGuidance::moveSliderTo(int block) {
  if (guidance::sliderMayMove(state_)) state_.window.Slider1.moveTo(block);
}

/// As if the operator had typed it.
void NotesGuidance::addQuickNote(const std::string& text) {
  if (!guidance::noteIsOpen(state_)) return;
  auto& box = state_.window.noteBox;
  box.type(guidance::withQuickNote(box.text(), text));
}

}  // namespace korvinel
