#include "platform/qt/place_on_disk.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

namespace korvinel::platform {
namespace {

struct BoxAboutAFile : testing::Test {
  QTemporaryDir folder;
  QMessageBox box;
  QStringList opened;

  void show(const QString& text) {
    box.setText(text);
    box.addButton("OK", QMessageBox::AcceptRole);
    addPlacesOnDisk(box,
                    {[this](const std::string& path) {
                       return folder.filePath(QString::fromStdString(path).section('\\', -1)).toStdString();
                     },
                     [](const std::string& path) { return path; }},
                    [this](const QString& place) { opened << place; });
    box.show();
  }
  QStringList places() const {
    QStringList texts;
    for (const auto* line : box.findChildren<QLineEdit*>()) texts << line->text();
    return texts;
  }
  QPushButton* showButton() const {
    for (auto* button : box.findChildren<QPushButton*>())
      if (button->text() == "Mostra") return button;
    return nullptr;
  }
};

TEST_F(BoxAboutAFile, ShowsItsTruePlaceBesideTheGivenText) {
  const QString text = "L'immagine e' nel file\nC:\\QUARVEL5\\DATAFILE\\uno.pdf";
  show(text);
  EXPECT_EQ(box.text(), text);
  EXPECT_EQ(places(), QStringList{folder.filePath("uno.pdf")});
  EXPECT_TRUE(box.findChild<QLineEdit*>()->isReadOnly());
}

TEST_F(BoxAboutAFile, MostraOpensItsFolderAndLeavesTheBoxOpen) {
  show("Il file\nC:\\QUARVEL5\\DATAFILE\\uno.pdf");
  ASSERT_NE(showButton(), nullptr);
  showButton()->click();
  EXPECT_EQ(opened, QStringList{folder.path()});
  EXPECT_TRUE(box.isVisible());
}

TEST_F(BoxAboutAFile, OffersNothingWhereTheFolderIsGone) {
  ASSERT_TRUE(folder.remove());
  show("Il file\nC:\\QUARVEL5\\DATAFILE\\uno.pdf");
  EXPECT_EQ(showButton(), nullptr);
}

TEST_F(BoxAboutAFile, WithoutAPathHasNothingMore) {
  show("Attenzione: C:\\QUARVEL5\\ si trova dentro la frase\ne /home/rossi/uno.pdf e' gia' vero");
  EXPECT_TRUE(places().isEmpty());
  EXPECT_EQ(showButton(), nullptr);
}

}  // namespace
}  // namespace korvinel::platform
