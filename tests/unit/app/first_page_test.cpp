#include "app/first_page.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace korvinel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FirstPageTest : testing::Test {
  FirstPageTest() {
    page.setGeometry(0, 0, 712, 530);
    box.setGeometry(0, 540, 100, 30);
    window.resize(1024, 730);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    box.setFocus();
  }
  QPushButton& button() { return *page.findChild<QPushButton*>(); }
  QCheckBox& never() { return *page.findChild<QCheckBox*>(); }

  QWidget window;
  QLineEdit box{&window};
  std::vector<bool> closed;
  FirstPage page{&window, [this](bool never) { closed.push_back(never); }};
};

TEST_F(FirstPageTest, IsNotThereUntilItIsPresented) {
  EXPECT_FALSE(page.isVisible());
  page.present();
  EXPECT_TRUE(page.isVisible());
  EXPECT_TRUE(box.hasFocus());
}

TEST_F(FirstPageTest, TheButtonClosesItAndReportsTheChoice) {
  page.present();
  button().click();
  EXPECT_FALSE(page.isVisible());
  page.present();
  never().setChecked(true);
  button().click();
  EXPECT_THAT(closed, ElementsAre(false, true));
}

TEST_F(FirstPageTest, EscClosesItWhereverTheKeyboardIs) {
  page.present();
  QTest::keyClick(&box, Qt::Key_Escape);
  EXPECT_FALSE(page.isVisible());
  QTest::keyClick(&box, Qt::Key_Escape);
  EXPECT_THAT(closed, ElementsAre(false));
}

TEST_F(FirstPageTest, TakenAwayItHasNotBeenRead) {
  page.present();
  page.takeAway();
  EXPECT_FALSE(page.isVisible());
  EXPECT_THAT(closed, IsEmpty());
}

TEST_F(FirstPageTest, NoTextIsCutOffAtTheSizesOfTheWindow) {
  page.present();
  for (const auto& [width, height, letters] : {std::tuple{712, 530, 13}, {626, 436, 11}, {1330, 757, 18}}) {
    QFont font = window.font();
    font.setPixelSize(letters);
    page.setFont(font);
    page.setGeometry(0, 0, width, height);
    QTest::qWait(20);
    for (const auto* label : page.findChildren<QLabel*>()) {
      const int needed =
          label->hasHeightForWidth() ? label->heightForWidth(label->width()) : label->sizeHint().height();
      EXPECT_GE(label->height(), needed) << width << " " << label->text().toStdString();
    }
    EXPECT_GE(button().width(), button().sizeHint().width());
    EXPECT_LE(button().geometry().bottom(), height);
  }
}

}  // namespace
}  // namespace korvinel
