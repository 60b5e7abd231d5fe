#include "app/trial_sign.h"

#include "guidance/trial.h"

namespace korvinel {

TrialSign::TrialSign(QWidget* parent) : QLabel(guidance::trialNotice, parent) {
  setAccessibleDescription("Prova");
  setStyleSheet(
      "QLabel { background: #ffecb3; color: #4e2a00; border: 1px solid #b26a00; border-radius: 3px; padding: 1px 6px; "
      "font-weight: bold; }");
  hide();
}

void TrialSign::showIf(bool trial) {
  if (trial == isHidden()) setVisible(trial);
}

}  // namespace korvinel
