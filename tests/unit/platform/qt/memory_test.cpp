#include <gtest/gtest.h>
#include <malloc.h>

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <functional>

#include "platform/qt/qt_dialogs.h"

/// Boxes and windows leak nothing: a leak too small to be noticed in one examination ends a program that runs for
/// weeks.
namespace korvinel::platform {
namespace {

/// Bytes allocated and not freed.
long bytesHeld() { return static_cast<long>(mallinfo2().uordblks); }

/// Bytes leaked by each act, once everything created on first use exists.
long leftByEach(const std::function<void()>& act) {
  constexpr int first = 40, times = 60;
  for (int i = 0; i < first; ++i) act();
  const long before = bytesHeld();
  for (int i = 0; i < times; ++i) act();
  return (bytesHeld() - before) / times;
}

constexpr long negligible = 700;  ///< bytes; the heap's fragmentation varies

void readAloud(QDialog& box) {
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(box.findChild<QTreeView*>());
  if (list == nullptr) return;
  for (int i = 0; i < list->childCount(); ++i) list->child(i)->text(QAccessible::Name);
}

struct MemoryTest : testing::Test {
  OperationEdge edge;
  QTemporaryDir folder;
  QtDialogs dialogs{edge,
                    {[this](const std::string&) { return folder.path().toStdString(); },
                     [](const std::string& path) { return path; }}};
  QTimer user;

  /// Paints every box that opens, reads it as a screen reader does, and cancels it.
  void SetUp() override {
    for (const char* name : {"a.QVD", "b.QVD", "c.QVD"})
      EXPECT_TRUE(QFile(folder.filePath(name)).open(QFile::WriteOnly));
    user.callOnTimeout([] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      readAloud(*box);
      box->grab();
      box->close();
    });
    user.start(1);
  }
};

TEST_F(MemoryTest, TheListOfFilesLeavesNothingBehind) {
  EXPECT_LT(leftByEach([this] { EXPECT_EQ(dialogs.chooseFile("C:\\X\\", "(*.QVD)|*.QVD|"), ""); }), negligible);
}

TEST_F(MemoryTest, ABoxLeavesNothingBehind) {
  EXPECT_LT(leftByEach([this] {
              EXPECT_EQ(dialogs.ask("Continuare?", "Error!"), Choice::cancel);
              EXPECT_EQ(dialogs.input("Soglia", "Artefacts", {200, 400}), "");
            }),
            negligible);
}

/// Like the windows of the report and the comments, which are created each time.
TEST_F(MemoryTest, AWindowWithColoursOfItsOwnLeavesNothingBehind) {
  EXPECT_LT(leftByEach([] {
              QWidget window;
              QPalette colours = window.palette();
              colours.setColor(QPalette::Button, Qt::yellow);
              window.setPalette(colours);
              for (int x = 0; x < 5; ++x) (new QPushButton("Uscita", &window))->move(90 * x, 0);
              window.grab();
            }),
            negligible);
}

}  // namespace
}  // namespace korvinel::platform
