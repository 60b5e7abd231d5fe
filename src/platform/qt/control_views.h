#pragma once

#include <QAbstractSlider>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/controls.h"

/// Widgets that mirror the models of controls: they show what the model holds, and hand on what the user does. A model
/// must outlive its view. For a screen reader, what has a text of its own (labels, buttons, check boxes) is named by it
/// and described by the model's name; everything else is named by the model.
namespace korvinel::platform {

/// Letters shrink where a text is too large for its label; what still does not fit is shown in a tool tip, and read by
/// a screen reader in any case.
class LabelView : public QLabel {
 public:
  /// The model's own lines in the middle of the place, or one text broken into lines that grow upward from its foot.
  enum class Lines { own, broken };
  LabelView(Label& model, QWidget* parent, Lines lines = Lines::own);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void follow(const Label& model);

  Lines lines_;
  QColor ink_;
};

/// Letters shrink where a caption is too wide for its button.
class ButtonView : public QPushButton {
 public:
  ButtonView(Button& model, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void follow(const Button& model);
  void fitCaption();
};

QLineEdit* makeView(TextBox& model, QWidget* parent);
QCheckBox* makeView(CheckBox& model, QWidget* parent);
/// Ties a slider or a scroll bar to its model.
void tie(Range& model, QAbstractSlider& slider);
/// Shows and hides the widget with its model.
void tie(Picture& model, QWidget& picture);

}  // namespace korvinel::platform
