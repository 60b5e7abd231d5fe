#include "app/interrupted_view.h"

#include <QAccessible>
#include <QHBoxLayout>

#include "platform/qt/qt_text.h"

namespace korvinel {

InterruptedView::InterruptedView(QWidget* parent, const Actions& actions)
    : QFrame(parent), text_(this), recover_("Recupera", this), later_("Più tardi", this) {
  setObjectName("Esame interrotto");
  setAutoFillBackground(true);
  const QColor amber(255, 224, 130), ink(38, 30, 0);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, amber);
  colours.setColor(QPalette::WindowText, ink);
  setPalette(colours);
  text_.setTextFormat(Qt::PlainText);
  text_.setWordWrap(true);
  text_.setAccessibleDescription("Esame interrotto");
  recover_.setToolTip("Fa il file dell'esame dai dati rimasti e poi li toglie");
  later_.setToolTip("Lascia i dati dove sono: il programma lo chiederà di nuovo quando riparte");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 4, 10, 4);
  row->addWidget(&text_, 1);
  row->addWidget(&recover_);
  row->addWidget(&later_);
  connect(&recover_, &QPushButton::clicked, this, [act = actions.recover] { act(); });
  connect(&later_, &QPushButton::clicked, this, [act = actions.later] { act(); });
  hide();
}

void InterruptedView::tell(const std::string& text, bool askToRecover) {
  const QString shown = platform::toQt(text);
  const bool isNews = shown != text_.text();
  text_.setText(shown);
  recover_.setVisible(askToRecover);
  later_.setText(askToRecover ? "Più tardi" : "Chiudi");
  show();
  if (!isNews) return;
  QAccessibleEvent news(&text_, QAccessible::Alert);
  QAccessible::updateAccessibility(&news);
}

void InterruptedView::setRecoverable(bool recoverable) { recover_.setEnabled(recoverable); }

}  // namespace korvinel
