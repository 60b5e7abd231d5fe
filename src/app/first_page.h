#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QPushButton>
#include <functional>

namespace korvinel {

/// What to know before the first examination: where the electrodes go, the four steps, good and bad traces. It stands
/// over surfaces that are still empty and leaves every control free; it never takes the keyboard.
class FirstPage : public QFrame {
 public:
  /// `onClosed`: called when the operator closes it; whether it is not to be shown again.
  FirstPage(QWidget* parent, std::function<void(bool never)> onClosed);

  void present();   ///< shows it above its neighbours
  void takeAway();  ///< hides it, as if nobody had read it

 private:
  void addHeading(QGridLayout& page);
  void addElectrodes(QGridLayout& page);
  void addSteps(QGridLayout& page);
  void addExamples(QGridLayout& page);
  void addFoot(QGridLayout& page);
  void dismiss();

  std::function<void(bool never)> onClosed_;
  QCheckBox* never_ = nullptr;
};

}  // namespace korvinel
