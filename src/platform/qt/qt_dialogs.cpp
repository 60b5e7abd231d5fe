#include "platform/qt/qt_dialogs.h"

#include <QAccessible>
#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTreeView>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "platform/qt/file_list_access.h"
#include "platform/qt/place_on_disk.h"
#include "platform/qt/qt_text.h"

namespace korvinel::platform {
namespace {

/// Over the active window, but not its child: closing the window would delete the box while its operation waits for an
/// answer.
void placeOverActiveWindow(QDialog& dialog) {
  const QWidget* window = QApplication::activeWindow();
  if (window == nullptr) return;
  dialog.setScreen(window->screen());
  dialog.winId();  // creates the system's window, which can have an owner
  dialog.windowHandle()->setTransientParent(window->windowHandle());
}

void prepare(QMessageBox& box, const std::string& text, const std::string& title) {
  box.setWindowTitle(toQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(toQt(text));
  // Not the desktop's own texts: the messages mention "OK" and "Cancel".
  box.addButton("OK", QMessageBox::AcceptRole)->setDefault(true);
  placeOverActiveWindow(box);
}

QPoint pixels(ScreenPosition position, const QScreen& screen) {
  constexpr double twipsPerInch = 1440;
  return {static_cast<int>(std::lround(position.x / twipsPerInch * screen.logicalDotsPerInchX())),
          static_cast<int>(std::lround(position.y / twipsPerInch * screen.logicalDotsPerInchY()))};
}

/// As near to the position as possible with the whole dialog on the screen.
void moveOnScreen(QDialog& dialog, ScreenPosition position) {
  const QScreen& screen = *dialog.screen();
  const QRect area = screen.availableGeometry();
  dialog.adjustSize();
  const QPoint wanted = area.topLeft() + pixels(position, screen);
  constexpr QPoint frame(16, 40);  // what a window manager usually puts around it
  const QPoint last = area.bottomRight() - QPoint(dialog.width(), dialog.height()) - frame;
  dialog.move(std::max(area.left(), std::min(wanted.x(), last.x())),
              std::max(area.top(), std::min(wanted.y(), last.y())));
}

void prepare(QFileDialog& dialog, QFileDialog::FileMode mode, const char* nameLabel, const char* accept) {
#ifndef Q_OS_WIN  // whose own dialog every user knows; elsewhere the toolkit's, the same on every desktop
  dialog.setOption(QFileDialog::DontUseNativeDialog);
#endif
  dialog.setOption(QFileDialog::ReadOnly);  // a slip must not rename or delete a recording
  dialog.setFileMode(mode);
  dialog.setLabelText(QFileDialog::LookIn, "Cerca in:");
  dialog.setLabelText(QFileDialog::FileName, nameLabel);
  dialog.setLabelText(QFileDialog::FileType, "Tipo file:");
  dialog.setLabelText(QFileDialog::Accept, accept);
  dialog.setLabelText(QFileDialog::Reject, "Annulla");
  constexpr QSize roomForAllColumns(760, 460);
  dialog.resize(roomForAllColumns);
  for (auto* list : dialog.findChildren<QTreeView*>())
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  placeOverActiveWindow(dialog);
}

}  // namespace

std::string toolkitFilter(const std::string& filter) {
  QStringList filters;
  const QStringList parts = QString::fromStdString(filter).split('|');
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString pattern = "(" + parts[i + 1] + ")";
    filters << (parts[i].endsWith(pattern) ? parts[i] : parts[i] + " " + pattern);
  }
  return filters.join(";;").toStdString();
}

/// A box closed because the program has ended also ends the operation that waits for it.
int QtDialogs::show(QDialog& dialog) const {
  if (lastWords == 0) edge_.stopIfEnded();
  const int result = dialog.exec();
  if (lastWords == 0) edge_.stopIfEnded();
  return result;
}

void QtDialogs::notice(const std::string& text) {
  QMessageBox box;
  prepare(box, text, "Korvinel");
  box.setIcon(QMessageBox::Information);
  addPlacesOnDisk(box, paths_);
  show(box);
}

Choice QtDialogs::ask(const std::string& text, const std::string& title) {
  QMessageBox box;
  prepare(box, text, title);
  box.setIcon(QMessageBox::Question);
  QAbstractButton* cancel = box.addButton("Cancel", QMessageBox::RejectRole);
  box.setEscapeButton(cancel);
  addPlacesOnDisk(box, paths_);
  show(box);
  // A box closed without a button counts as Cancel.
  return box.buttonRole(box.clickedButton()) == QMessageBox::AcceptRole ? Choice::ok : Choice::cancel;
}

std::string QtDialogs::input(const std::string& prompt, const std::string& title, ScreenPosition position) {
  QInputDialog dialog;
  dialog.setWindowTitle(toQt(title));
  dialog.setLabelText(toQt(prompt));
  dialog.setOkButtonText("OK");
  dialog.setCancelButtonText("Cancel");
  placeOverActiveWindow(dialog);
  moveOnScreen(dialog, position);
  return show(dialog) == QDialog::Accepted ? dialog.textValue().toStdString() : "";
}

std::string QtDialogs::chooseFile(const std::string& directory, const std::string& filter) {
  QAccessible::installFactory(fileListAccess);  // before the dialog is first queried
  QFileDialog dialog(nullptr, "Apri");
  prepare(dialog, QFileDialog::ExistingFile, "Nome file:", "Apri");
  dialog.setDirectory(QString::fromStdString(paths_.toHost(directory)));
  dialog.setNameFilters(QString::fromStdString(toolkitFilter(filter)).split(";;"));
  if (show(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return "";
  return paths_.toProgram(dialog.selectedFiles().constFirst().toStdString());
}

std::string QtDialogs::chooseFolder(const std::string& title, const std::string& directory) {
  QAccessible::installFactory(fileListAccess);
  QFileDialog dialog(nullptr, toQt(title));
  prepare(dialog, QFileDialog::Directory, "Cartella:", "Scegli");
  dialog.setOption(QFileDialog::ShowDirsOnly);
  dialog.setDirectory(QString::fromStdString(paths_.toHost(directory)));
  if (show(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return "";
  std::string folder = dialog.selectedFiles().constFirst().toStdString();
  if (!folder.ends_with('/')) folder += '/';
  return paths_.toProgram(folder);
}

}  // namespace korvinel::platform
