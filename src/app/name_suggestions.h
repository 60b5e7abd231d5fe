#pragma once

#include <QTimer>
#include <string>

#include "guidance/recording_index.h"
#include "platform/qt/ghost_text.h"

class QWidget;

namespace korvinel {

struct MainState;

/// Grey suggestions in the boxes of the two names: the subject's from earlier recordings, the file's from the subject
/// and the day. Only Tab takes one.
class NameSuggestions {
 public:
  /// `window`: holds the views of both boxes.
  NameSuggestions(MainState& state, QWidget& window);

  void refresh();  ///< follows the record

 private:
  [[nodiscard]] bool isBusy() const;
  void readSome();
  [[nodiscard]] std::string fileNameFor(const std::string& typed) const;
  [[nodiscard]] bool isUsable(const std::string& name) const;

  MainState& state_;
  guidance::RecordingIndex index_;
  platform::GhostText* subject_;
  platform::GhostText* fileName_;
  QTimer reading_;         ///< runs until the index is complete
  bool isToLook_ = false;  ///< a recording may have been added
  std::string shownFor_;   ///< the boxes' content and state when the suggestions were last asked for
};

}  // namespace korvinel
