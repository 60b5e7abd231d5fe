#include "platform/qt/place_on_disk.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>
#include <algorithm>

namespace korvinel::platform {
namespace {

QString folderOf(const QString& place) { return QFileInfo(place).isDir() ? place : QFileInfo(place).path(); }

/// Wide enough to read where the file is, as far as a box can be.
QLineEdit* placeLine(const QString& place) {
  constexpr int mostLetters = 60;
  constexpr int margin = 24;
  auto* line = new QLineEdit(QDir::toNativeSeparators(place));
  line->setReadOnly(true);
  line->setFrame(false);
  line->setAccessibleName("Sul disco");
  line->setMinimumWidth(std::min(line->fontMetrics().horizontalAdvance(line->text()),
                                 mostLetters * line->fontMetrics().averageCharWidth()) +
                        margin);
  return line;
}

using Opening = std::function<void(const QString& folder)>;

QPushButton* showButton(const QString& place, const Opening& open) {
  auto* button = new QPushButton("Mostra");
  button->setAutoDefault(false);
  button->setToolTip("Apre la cartella in cui si trova il file");
  QObject::connect(button, &QPushButton::clicked, button, [place, open] { open(folderOf(place)); });
  return button;
}

void addPlace(QGridLayout& layout, const QString& place, const Opening& open) {
  auto* row = new QHBoxLayout;
  row->addWidget(placeLine(place), 1);
  if (QFileInfo::exists(folderOf(place))) row->addWidget(showButton(place, open));
  layout.addLayout(row, layout.rowCount(), 0, 1, layout.columnCount());
}

}  // namespace

void openFolder(const QString& folder) { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); }

void addPlacesOnDisk(QMessageBox& box, const PathNotation& paths, const Opening& open) {
  auto* layout = qobject_cast<QGridLayout*>(box.layout());
  if (layout == nullptr) return;
  for (const QString& line : box.text().split('\n'))
    if (line.startsWith("C:\\QUARVEL5\\"))
      addPlace(*layout, QString::fromStdString(paths.toHost(line.toStdString())), open);
}

}  // namespace korvinel::platform
