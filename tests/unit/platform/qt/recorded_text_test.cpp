#include "platform/qt/recorded_text.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPainter>

namespace korvinel::platform {
namespace {

/// A window with a text at the right and one in a box.
struct Written : testing::Test {
  QWidget window;
  QLabel label{"Spettro", &window};
  QLineEdit box{"Rossi", &window};

  void SetUp() override {
    window.resize(400, 200);
    label.setGeometry(300, 100, 90, 20);
    box.setGeometry(10, 150, 120, 26);
    window.show();
  }
};

TEST_F(Written, TextsAreFoundWhereTheyStand) {
  const auto texts = textsOf(window);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, "Spettro");
  EXPECT_GE(texts[0].begin.x(), 300);
  EXPECT_LT(texts[0].begin.x(), 310);
  EXPECT_GT(texts[0].begin.y(), 100);
  EXPECT_LT(texts[0].begin.y(), 120);
  EXPECT_NEAR(texts[0].width, label.fontMetrics().horizontalAdvance("Spettro"), 2);
  EXPECT_EQ(texts[1].text, "Rossi");
}

TEST_F(Written, WhatIsHiddenIsNotFound) {
  box.hide();
  EXPECT_EQ(textsOf(window).size(), 1U);
}

TEST_F(Written, CoveredByThePictureThePageLooksLikeThePictureAlone) {
  QImage page(800, 400, QImage::Format_RGB32);
  page.fill(Qt::white);
  QPainter painter(&page);
  painter.scale(2, 2);
  paintForSearching(painter, textsOf(window));
  bool anyInk = false;
  for (int x = 600; x < 780; ++x)
    for (int y = 200; y < 240; ++y) anyInk = anyInk || page.pixel(x, y) != qRgb(255, 255, 255);
  EXPECT_TRUE(anyInk) << "at its place";
  QImage picture(400, 200, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  painter.drawImage(QRectF(0, 0, 400, 200), picture);
  painter.end();
  for (int x = 0; x < 800; ++x)
    for (int y = 0; y < 400; ++y) ASSERT_EQ(page.pixel(x, y), qRgb(0, 0, 255));
}

}  // namespace
}  // namespace korvinel::platform
