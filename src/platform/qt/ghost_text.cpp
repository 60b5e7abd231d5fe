#include "platform/qt/ghost_text.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "platform/qt/qt_text.h"

namespace korvinel::platform {

GhostText::GhostText(QLineEdit& box, std::function<std::string(const std::string&)> suggest)
    : QLabel(&box), box_(box), suggest_(std::move(suggest)) {
  setTextFormat(Qt::PlainText);
  setAccessibleDescription("Suggerimento, accettato con Tab");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setForegroundRole(QPalette::PlaceholderText);
  hide();
  box.installEventFilter(this);
  connect(&box, &QLineEdit::textChanged, this, [this] { refresh(); });
  connect(&box, &QLineEdit::cursorPositionChanged, this, [this] { refresh(); });
  connect(&box, &QLineEdit::selectionChanged, this, [this] { refresh(); });
}

/// In an empty box also without the focus, as a hint.
bool GhostText::mayBeShown() const {
  return shown_ && box_.isEnabled() && !box_.isReadOnly() && !box_.hasSelectedText() &&
         box_.cursorPosition() == box_.text().size() && (box_.hasFocus() || box_.text().isEmpty());
}

void GhostText::refresh() {
  whole_ = mayBeShown() ? toQt(suggest_(box_.text().toStdString())) : QString();
  const QString rest = whole_.mid(box_.text().size());
  if (!rest.isEmpty()) place(rest);
  if (isVisibleTo(&box_) == rest.isEmpty()) setVisible(!rest.isEmpty());
}

void GhostText::setShown(bool shown) {
  shown_ = shown;
  refresh();
}

void GhostText::place(const QString& rest) {
  constexpr int caret = 2;
  const QRect cursor = box_.inputMethodQuery(Qt::ImCursorRectangle).toRect();
  const int left = cursor.center().x() + caret;
  const int room = box_.width() - left - box_.textMargins().right();
  setFont(box_.font());
  setText(fontMetrics().elidedText(rest, Qt::ElideRight, room));
  setGeometry(left, 0, room, box_.height());
}

void GhostText::take() {
  const QString whole = whole_;
  box_.selectAll();
  box_.insert(whole);  // as typed: it can be undone
}

bool GhostText::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      const auto* key = static_cast<QKeyEvent*>(event);
      if (key->key() != Qt::Key_Tab || key->modifiers() != Qt::NoModifier || !box_.hasFocus() || whole_.isEmpty())
        break;
      take();
      return true;
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::EnabledChange:
    case QEvent::ReadOnlyChange:
    case QEvent::Resize:
    case QEvent::FontChange:
      QMetaObject::invokeMethod(
          this, [this] { refresh(); }, Qt::QueuedConnection);
      break;
    default: break;
  }
  return false;
}

}  // namespace korvinel::platform
