#include "platform/qt/help.h"

#include <QAbstractButton>
#include <QShortcut>

#include "platform/qt/surface_view.h"

namespace korvinel::platform {
namespace {

void reachByKey(QWidget& widget, const QKeySequence& keys) {
  if (auto* button = qobject_cast<QAbstractButton*>(&widget)) return button->setShortcut(keys);
  const auto* shortcut = new QShortcut(keys, &widget);
  QObject::connect(shortcut, &QShortcut::activated, &widget, [&widget] { widget.setFocus(Qt::ShortcutFocusReason); });
}

}  // namespace

void explain(QWidget& widget, const Help& help) {
  QString text = QString::fromUtf8(help.text.data(), static_cast<qsizetype>(help.text.size()));
  if (help.letter != '\0') {
    const QString keys = QString("Alt+") + help.letter;
    reachByKey(widget, QKeySequence(keys));
    text += " (" + keys + ")";
  }
  widget.setWhatsThis(text);
  const bool showsIt = dynamic_cast<SurfaceView*>(&widget) != nullptr;
  if (!showsIt) widget.setToolTip(inLines(text));
}

QString inLines(const QString& text) {
  constexpr qsizetype longest = 64;
  QString lines;
  qsizetype length = -1;  // no blank before the first word
  for (const QString& word : text.split(' ')) {
    const bool wraps = length > 0 && length + 1 + word.size() > longest;
    if (!lines.isEmpty()) lines += wraps ? '\n' : ' ';
    lines += word;
    length = (wraps ? 0 : length + 1) + word.size();
  }
  return lines;
}

}  // namespace korvinel::platform
