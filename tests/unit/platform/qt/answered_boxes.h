#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <functional>
#include <vector>

#include "platform/qt/qt_dialogs.h"

namespace korvinel::platform {

/// Real boxes, and a user who answers them.
struct QtDialogsTest : testing::Test {
  OperationEdge edge;
  QTemporaryDir folder;
  QtDialogs dialogs{edge,
                    {[this](const std::string& path) { return path == "C:\\X\\" ? folder.path().toStdString() : path; },
                     [](const std::string& path) { return "program:" + path; }}};
  std::function<void(QDialog&)> action;
  QTimer user;

  void SetUp() override {
    user.callOnTimeout([this] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      user.stop();
      action(*box);
      if (!box->isVisible()) return;
      ADD_FAILURE() << "nobody has answered the box";
      box->reject();
    });
  }

  /// What the user does with the next box, as soon as it is open.
  void act(std::function<void(QDialog&)> what) {
    action = std::move(what);
    user.start(1);
  }
};

inline void press(QDialog& box, const QString& caption) {
  for (QAbstractButton* button : box.findChildren<QAbstractButton*>())
    if (button->text().remove('&') == caption) return button->click();
  ADD_FAILURE() << "no button " << caption.toStdString();
}

/// The cells of the dialog's list of files, as a screen reader sees them.
inline std::vector<QAccessibleInterface*> cellsOf(QDialog& box) {
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(box.findChild<QTreeView*>());
  std::vector<QAccessibleInterface*> cells;
  for (int i = 0; i < list->childCount(); ++i) cells.push_back(list->child(i));
  return cells;
}

inline QStringList namesOf(const std::vector<QAccessibleInterface*>& cells) {
  QStringList names;
  for (const QAccessibleInterface* cell : cells) names << cell->text(QAccessible::Name);
  return names;
}

inline void makeFile(const QString& path) {
  QFile file(path);
  ASSERT_TRUE(file.open(QFile::WriteOnly));
}

}  // namespace korvinel::platform
