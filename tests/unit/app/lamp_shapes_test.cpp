#include "app/lamp_shapes.h"

#include <gtest/gtest.h>

#include <QImage>
#include <functional>
#include <set>

#include "platform/colour.h"

namespace korvinel {
namespace {

using guidance::SignalState;

/// What somebody sees who distinguishes no colours: light and dark.
QByteArray shadesOf(const QSize& size, const std::function<void(QPainter&)>& draw) {
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  draw(painter);
  painter.end();
  constexpr int light = 140;
  QByteArray shades;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) shades += qGray(picture.pixel(x, y)) > light ? '.' : '#';
  return shades;
}

template <typename Draw>
std::size_t differentPictures(const QSize& size, Draw&& draw) {
  std::set<QByteArray> pictures;
  for (int i = 0; i < guidance::signalStates; ++i)
    pictures.insert(shadesOf(size, [&](QPainter& painter) { draw(painter, static_cast<SignalState>(i)); }));
  return pictures.size();
}

constexpr std::size_t all = guidance::signalStates;

TEST(LampShapes, EveryStateHasAnotherSignWithoutColours) {
  EXPECT_EQ(differentPictures({18, 18}, [](QPainter& painter,
                                           SignalState state) { drawLampSign(painter, QRectF(3, 3, 12, 12), state); }),
            all);
}

TEST(LampShapes, EveryStateHasAnotherCellWithoutColours) {
  EXPECT_EQ(differentPictures({4, 9}, [](QPainter& painter,
                                         SignalState state) { drawHistoryCell(painter, QRect(0, 0, 4, 9), state); }),
            all);
}

TEST(LampShapes, EveryColourIsReadableOnWhite) {
  for (int i = 0; i < guidance::signalStates; ++i) {
    const QColor colour = lampColour(static_cast<SignalState>(i));
    const auto part = [](int value) { return static_cast<unsigned char>(value); };
    const platform::Rgb ink{part(colour.red()), part(colour.green()), part(colour.blue())};
    EXPECT_GE(platform::contrast({255, 255, 255}, ink), 4.5) << i;
  }
}

}  // namespace
}  // namespace korvinel
