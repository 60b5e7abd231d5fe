#pragma once

#include <QAbstractSlider>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/controls.h"

/// Widgets that mirror the models of controls: they show what the model holds, and forward what the user does. A model
/// must outlive its view. For a screen reader, a widget with its own text (label, button, check box) is named by it and
/// described by the model's name; any other is named by the model.
namespace korvinel::platform {

/// Letters shrink if a text is too large for its label; text that still does not fit is shown in a tool tip, and is
/// always available to a screen reader.
class LabelView : public QLabel {
 public:
  /// The model's own lines centred, or one text broken into lines that grow upward from the bottom.
  enum class Lines { own, broken };
  LabelView(Label& model, QWidget* parent, Lines lines = Lines::own);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void follow(const Label& model);

  Lines lines_;
  QColor ink_;
};

/// Letters shrink if a caption is too wide for its button.
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
/// Connects a slider or a scroll bar to its model.
void tie(Range& model, QAbstractSlider& slider);
/// Shows and hides the widget with its model.
void tie(Picture& model, QWidget& picture);

}  // namespace korvinel::platform
