#pragma once

#include <QWidget>
#include <array>

#include "app/lamp.h"

namespace korvinel {

/// A lamp for each site, in the order of the channels. A screen reader speaks the history's news, and reads each lamp
/// that it is moved to.
class LampRow : public QWidget {
 public:
  explicit LampRow(QWidget* parent = nullptr);

  void display(const guidance::SignalHistory& history);

 private:
  std::array<Lamp*, eeg::channelCount> lamps_{};
  int newsSpoken_ = 0;
};

}  // namespace korvinel
