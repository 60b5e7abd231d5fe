#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

#include "guidance/note_list.h"

namespace korvinel {

/// The notes of the examination as a list, and the quick notes while the note box is open. It stands over the message
/// panel.
class NotesPanel : public QFrame {
 public:
  explicit NotesPanel(QWidget* ground);

  std::function<void(int block)> onChosen;                   ///< a note of the list, by its block
  std::function<void(const std::string& text)> onQuickNote;  ///< to be added to the note box
  std::function<void(const std::vector<std::string>& notes)> onQuickNotesEdited;

  void showNotes(const std::vector<guidance::NoteLine>& notes);
  void setQuickNotes(const std::vector<std::string>& notes);
  void setNoteOpen(bool open);  ///< quick notes are offered only while the note box is open

 private:
  void addList(QVBoxLayout& column);
  void addQuickNotes(QVBoxLayout& column);
  void choose(const QListWidgetItem* item) const;
  void editQuickNotes(bool edit);
  void takeQuickNotes();

  std::vector<guidance::NoteLine> notes_;
  std::vector<std::string> quickNotes_;
  QListWidget* list_ = nullptr;
  QWidget* quick_ = nullptr;  ///< holds the buttons
  QGridLayout* buttons_ = nullptr;
  QPushButton* edit_ = nullptr;
  QLineEdit* line_ = nullptr;
  QPointer<QWidget> before_;  ///< had the keyboard before the list of quick notes was edited
};

}  // namespace korvinel
