#pragma once

#include <QLabel>

namespace korvinel {

/// Says plainly that what is seen comes from the simulated instrument; hidden otherwise.
class TrialSign : public QLabel {
 public:
  explicit TrialSign(QWidget* parent = nullptr);
  void showIf(bool trial);
};

}  // namespace korvinel
