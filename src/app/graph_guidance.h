#pragma once

#include "app/ground_captions.h"
#include "app/notes_guidance.h"
#include "app/veils.h"

namespace korvinel {

/// What stands beside and over the main window's graphs: the names of the sites, the notes, and the covers over an
/// examination that is no longer in memory.
class GraphGuidance {
 public:
  /// `ground`: the main window's, which owns the widgets. Both must outlive this.
  GraphGuidance(MainState& state, platform::PlanGround& ground);

  NotesGuidance& notes() { return notes_; }
  void refresh();  ///< shows the record as it is now

 private:
  const MainState& state_;
  GroundCaptions captions_;
  NotesGuidance notes_;
  Veils veils_;
};

}  // namespace korvinel
