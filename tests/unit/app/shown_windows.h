#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>
#include <algorithm>
#include <string>
#include <vector>

#include "app/comment_window_view.h"
#include "app/main_window_view.h"
#include "app/report_window_view.h"

namespace korvinel {

/// The three windows, shown, with their models.
struct ShownWindows {
  ShownWindows() {
    mainModel.noteBox.setEnabled(true);
    for (QWidget* window : all()) {
      // The main window gets its captions at start-up, the report when it loads.
      for (auto* button : window->findChildren<QAbstractButton*>())
        if (button->text().isEmpty()) giveCaption(*button);
      window->show();
      window->activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
  }
  static void giveCaption(QAbstractButton& button) {
    const QKeySequence key = button.shortcut();
    button.setText("Scritta");
    button.setShortcut(key);
  }
  std::vector<QWidget*> all() { return {&mainView, &reportView, &commentView}; }

  MainWindow mainModel;
  ReportWindow reportModel;
  CommentWindow commentModel;
  MainWindowView mainView{mainModel, [] { return true; }};
  ReportWindowView reportView{reportModel, nullptr, [] {}};
  CommentWindowView commentView{commentModel, nullptr};
};

/// The widgets that the Tab key reaches, from the first one until it returns to it.
inline std::vector<QWidget*> tabChain(QWidget& window) {
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  if (window.focusWidget() == nullptr) QTest::keyClick(&window, Qt::Key_Tab);
  std::vector<QWidget*> chain;
  for (QWidget* now = window.focusWidget(); std::find(chain.begin(), chain.end(), now) == chain.end();
       now = window.focusWidget()) {
    chain.push_back(now);
    QTest::keyClick(now, Qt::Key_Tab);
  }
  return chain;
}

inline std::vector<std::string> names(const std::vector<QWidget*>& widgets) {
  std::vector<std::string> all;
  for (QWidget* widget : widgets) all.push_back(widget->objectName().toStdString());
  return all;
}

inline std::vector<QWidget*> focusable(QWidget& window) {
  std::vector<QWidget*> all;
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (widget->focusPolicy() != Qt::NoFocus) all.push_back(widget);
  return all;
}

}  // namespace korvinel
