#include "app/graph_guidance.h"

#include <QLineEdit>

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "guidance/captions.h"
#include "guidance/leftovers.h"
#include "platform/qt/qt_text.h"

namespace korvinel {

GraphGuidance::GraphGuidance(MainState& state, platform::PlanGround& ground)
    : state_(state), captions_(ground), notes_(state, ground), veils_(ground) {
  // Typing a name is no operation, but the caption compares the names with those of the graphs.
  for (const platform::TextBox* box : {&state.window.fileNameBox, &state.window.subjectBox})
    if (const auto* line = ground.findChild<QLineEdit*>(platform::toQt(box->name())))
      QObject::connect(line, &QLineEdit::textChanged, line, [this] { refresh(); });
}

void GraphGuidance::refresh() {
  captions_.show(guidance::captionsOf(state_));
  notes_.refresh();
  veils_.show(guidance::leftoversOf(state_));
}

}  // namespace korvinel
