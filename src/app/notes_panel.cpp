#include "app/notes_panel.h"

#include <QLabel>
#include <QVBoxLayout>

#include "guidance/quick_notes.h"
#include "platform/qt/help.h"
#include "platform/qt/qt_text.h"

namespace korvinel {
namespace {

constexpr int margin = 6;
constexpr int buttonsInARow = 3;

/// Takes the keyboard only by Tab: a click leaves it where the operator is typing.
QPushButton* newButton(const QString& text, QWidget* parent, const char* help) {
  auto* button = new QPushButton(text, parent);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAutoDefault(true);
  platform::explain(*button, {help});
  return button;
}

}  // namespace

NotesPanel::NotesPanel(QWidget* ground) : QFrame(ground) {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setAutoFillBackground(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(margin / 2);
  addList(*column);
  addQuickNotes(*column);
  hide();
}

void NotesPanel::addList(QVBoxLayout& column) {
  column.addWidget(new QLabel("Note dell'esame", this));
  list_ = new QListWidget(this);
  list_->setObjectName("Elenco delle note");
  list_->setAccessibleName("Elenco delle note");
  list_->setWordWrap(true);
  platform::explain(*list_, {"Le note dell'esame, con il momento in cui sono state cominciate. Scegliendone una, il "
                             "cursore sotto la striscia va al suo blocco. Durante un esame o una rilettura si possono "
                             "solo leggere."});
  QObject::connect(list_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { choose(item); });
  QObject::connect(list_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { choose(item); });
  column.addWidget(list_, 1);
}

void NotesPanel::addQuickNotes(QVBoxLayout& column) {
  quick_ = new QWidget(this);
  buttons_ = new QGridLayout(quick_);
  buttons_->setContentsMargins(0, 0, 0, 0);
  buttons_->setSpacing(margin / 2);
  column.addWidget(quick_);
  edit_ = newButton("Modifica…", quick_, "Cambia l'elenco delle note rapide.");
  edit_->setCheckable(true);
  QObject::connect(edit_, &QPushButton::toggled, this, [this](bool on) { editQuickNotes(on); });
  line_ = new QLineEdit(this);
  line_->setAccessibleName("Note rapide");
  platform::explain(*line_, {"Le note rapide, separate da virgole: al massimo sei. Invio conferma."});
  QObject::connect(line_, &QLineEdit::returnPressed, this, [this] { takeQuickNotes(); });
  line_->hide();
  column.addWidget(line_);
  quick_->hide();
}

void NotesPanel::showNotes(const std::vector<guidance::NoteLine>& notes) {
  if (notes == notes_) return;
  const bool grows = notes.size() > notes_.size();
  notes_ = notes;
  const int row = list_->currentRow();
  list_->clear();
  for (const guidance::NoteLine& note : notes_) list_->addItem(platform::toQt(note.time + "   " + note.text));
  if (row >= 0 && row < list_->count()) list_->setCurrentRow(row, QItemSelectionModel::NoUpdate);
  if (grows) list_->scrollToBottom();
}

void NotesPanel::choose(const QListWidgetItem* item) const {
  const auto row = static_cast<std::size_t>(list_->row(item));
  if (row < notes_.size() && notes_[row].block > 0 && onChosen) onChosen(notes_[row].block);
}

void NotesPanel::setQuickNotes(const std::vector<std::string>& notes) {
  if (notes == quickNotes_) return;
  quickNotes_ = notes;
  for (QPushButton* button : quick_->findChildren<QPushButton*>())
    if (button != edit_) delete button;
  int place = 0;
  for (const std::string& note : notes) {
    auto* button =
        newButton(platform::toQt(note), quick_, "Scrive questo testo nella casella della nota; Invio lo conferma.");
    QObject::connect(button, &QPushButton::clicked, this, [this, note] { onQuickNote(note); });
    buttons_->addWidget(button, place / buttonsInARow, place % buttonsInARow);
    ++place;
  }
  buttons_->addWidget(edit_, place / buttonsInARow, place % buttonsInARow);
}

void NotesPanel::setNoteOpen(bool open) {
  if (open == quick_->isVisibleTo(this)) return;
  if (!open) edit_->setChecked(false);
  quick_->setVisible(open);
}

void NotesPanel::editQuickNotes(bool edit) {
  line_->setText(platform::toQt(guidance::quickNotesText(quickNotes_)));
  if (edit) before_ = window()->focusWidget();
  line_->setVisible(edit);
  if (edit) return line_->setFocus(Qt::OtherFocusReason);
  if (before_) before_->setFocus(Qt::OtherFocusReason);  // the note box, if the operator was typing
}

void NotesPanel::takeQuickNotes() {
  setQuickNotes(guidance::quickNotesFrom(line_->text().toStdString()));
  edit_->setChecked(false);
  if (onQuickNotesEdited) onQuickNotesEdited(quickNotes_);
}

}  // namespace korvinel
