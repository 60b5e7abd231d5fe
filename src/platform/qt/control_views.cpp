#include "platform/qt/control_views.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QToolTip>
#include <algorithm>
#include <memory>

#include "platform/qt/fitted_text.h"
#include "platform/qt/help.h"
#include "platform/qt/qt_text.h"

namespace korvinel::platform {
namespace {

/// Calls `show` now and after every change of the model, until the widget is gone.
template <typename Model, typename Show>
void mirror(Model& model, QWidget& widget, Show show) {
  model.onChanged = show;
  QObject::connect(&widget, &QObject::destroyed, [&model] { model.onChanged = nullptr; });
  show();
}

QColor readableOn(const QColor& ground) {
  const Rgb colour = fromQt(ground);
  return contrast({0, 0, 0}, colour) >= contrast({255, 255, 255}, colour) ? Qt::black : Qt::white;
}

/// A widget's usual palette, or one with this background colour and a text readable on it.
QPalette paletteFor(const QWidget& widget, Colour colour, Colour usual, QPalette::ColorRole ground,
                    QPalette::ColorRole text) {
  if (colour == usual) return {};
  QPalette palette = widget.palette();
  const QColor filling = toQt(rgbOf(colour));
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, ground, filling);
    palette.setColor(group, text, readableOn(filling));
  }
  return palette;
}

/// Keeps the button's key when its caption changes.
void setCaption(QAbstractButton& button, const std::string& caption) {
  const QKeySequence key = button.shortcut();
  button.setText(toQt(caption));
  button.setShortcut(key);
}

}  // namespace

LabelView::LabelView(Label& model, QWidget* parent, Lines lines) : QLabel(parent), lines_(lines) {
  setTextFormat(Qt::PlainText);
  setObjectName(toQt(model.name()));
  setAccessibleDescription(toQt(model.name()));
  mirror(model, *this, [this, &model] { follow(model); });
}

void LabelView::follow(const Label& model) {
  ink_ = toQt(rgbOf(model.ink()));
  setText(toQt(model.text()));
  update();
}

void LabelView::paintEvent(QPaintEvent*) {
  const bool broken = lines_ == Lines::broken;
  const FittedText fitted = (broken ? inBrokenLines : lineByLine)(font(), text(), size());
  const QString shown = fitted.lines.join('\n');
  const QString help = inLines(whatsThis());
  const QString tip = fitted.whole ? help : help.isEmpty() ? text() : inLines(text()) + "\n" + help;
  if (tip != toolTip()) setToolTip(tip);
  const Qt::Alignment height = broken ? Qt::AlignBottom : Qt::AlignVCenter;
  const auto alignment = static_cast<int>((Qt::AlignLeft | height).toInt());
  QPainter painter(this);
  painter.setFont(fitted.font);
  const QRect place = painter.fontMetrics().boundingRect(rect(), alignment, shown);
  const Rgb ground = fromQt(palette().color(QPalette::Window));
  const Rgb cell = cellBehind(fromQt(ink_), ground);
  if (cell != ground) painter.fillRect(place, toQt(cell));
  painter.setPen(ink_);
  painter.drawText(rect(), alignment, shown);
}

ButtonView::ButtonView(Button& model, QWidget* parent) : QPushButton(parent) {
  setObjectName(toQt(model.name()));
  setAccessibleDescription(toQt(model.name()));
  setAutoDefault(true);  // Enter presses it, too, when it has the keyboard
  connect(this, &QPushButton::clicked, [&model] { model.press(); });
  mirror(model, *this, [this, &model] { follow(model); });
}

void ButtonView::follow(const Button& model) {
  setCaption(*this, model.caption());
  setPalette(paletteFor(*this, model.backColour(), Colour::buttonFace, QPalette::Button, QPalette::ButtonText));
  fitCaption();
}

/// A key held down presses once.
void ButtonView::keyPressEvent(QKeyEvent* event) {
  if (!event->isAutoRepeat()) QPushButton::keyPressEvent(event);
}

void ButtonView::resizeEvent(QResizeEvent* event) {
  QPushButton::resizeEvent(event);
  fitCaption();
}

void ButtonView::fitCaption() {
  constexpr int margin = 8;
  if (parentWidget()->font().pixelSize() > 0)
    setFont(fittedFont(parentWidget()->font(), text(), size() - QSize(margin, 0)));
}

namespace {

void showText(const TextBox& model, QLineEdit& box) {
  const QString text = toQt(model.text());
  if (box.text() == text) return;
  const QSignalBlocker quiet(box);
  const auto cursor = box.cursorPosition() - (box.text().size() - text.size());
  box.setText(text);
  box.setCursorPosition(static_cast<int>(std::clamp<qsizetype>(cursor, 0, text.size())));
}

void takeText(TextBox& model, QLineEdit& box) {
  const QString typed = box.text();
  // An accent separate from its letter, as some systems deliver it, is combined with it first.
  const QString whole = typed.normalized(QString::NormalizationForm_C);
  model.type(whole.toStdString());
  if (typed == toQt(model.text())) return;
  showText(model, box);
  if (whole == toQt(model.text())) return;
  QToolTip::showText(box.mapToGlobal(QPoint(0, box.height())),
                     "Tolti i caratteri che i file dei dati non possono contenere", &box);
}

}  // namespace

QLineEdit* makeView(TextBox& model, QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(toQt(model.name()));
  box->setAccessibleName(toQt(model.name()));
  constexpr int margin = 3;
  box->setTextMargins(margin, 0, margin, 0);
  // Not only typed text: it can also come from the clipboard, a drop or an assistive program.
  QObject::connect(box, &QLineEdit::textChanged, [&model, box] { takeText(model, *box); });
  QObject::connect(box, &QLineEdit::returnPressed, [&model] { model.pressKey('\r'); });
  const auto before = std::make_shared<QPointer<QWidget>>();  // what had the focus before
  model.onFocusRequested = [box, before] {
    if (!box->hasFocus()) *before = QApplication::focusWidget();
    box->setFocus(Qt::OtherFocusReason);
  };
  QObject::connect(box, &QObject::destroyed, [&model] { model.onFocusRequested = nullptr; });
  mirror(model, *box, [&model, box, before] {
    showText(model, *box);
    // Otherwise the toolkit would move the focus to the next control, which the user's next key would press.
    if (!model.enabled() && box->hasFocus() && *before) (*before)->setFocus(Qt::OtherFocusReason);
    box->setEnabled(model.enabled());
    box->setReadOnly(model.readOnly());
    const Colour ground = model.readOnly() ? Colour::buttonFace : model.backColour();
    box->setPalette(paletteFor(*box, ground, Colour::white, QPalette::Base, QPalette::Text));
  });
  return box;
}

QCheckBox* makeView(CheckBox& model, QWidget* parent) {
  auto* box = new QCheckBox(parent);
  box->setObjectName(toQt(model.name()));
  box->setAccessibleDescription(toQt(model.name()));
  // Not only clicks: an assistive program switches the box without one.
  QObject::connect(box, &QCheckBox::toggled, [&model](bool checked) {
    if (checked != model.checked()) model.click();
  });
  mirror(model, *box, [&model, box] {
    setCaption(*box, model.caption());
    box->setChecked(model.checked());
  });
  return box;
}

void tie(Range& model, QAbstractSlider& slider) {
  slider.setObjectName(toQt(model.name()));
  slider.setAccessibleName(toQt(model.name()));
  // A scroll bar would leave the focus to the area that it scrolls, and treat "right" as "back".
  slider.setFocusPolicy(Qt::StrongFocus);
  slider.setInvertedControls(false);
  slider.setRange(model.first(), model.last());
  slider.setValue(model.value());
  QObject::connect(&slider, &QAbstractSlider::valueChanged, [&model](int value) {
    if (value != model.value()) model.moveTo(value);
  });
  mirror(model, slider, [&model, &slider] { slider.setValue(model.value()); });
}

void tie(Picture& model, QWidget& picture) {
  picture.setObjectName(toQt(model.name()));
  picture.setAccessibleName(toQt(model.name()));
  mirror(model, picture, [&model, &picture] { picture.setVisible(model.visible()); });
}

}  // namespace korvinel::platform
