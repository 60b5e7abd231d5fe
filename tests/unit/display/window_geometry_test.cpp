#include "display/window_geometry.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

namespace korvinel {
namespace {

using platform::Rect;

TEST(WindowGeometry, EverythingStandsInItsPlace) {
  namespace plan = geometry;
  const std::pair<Rect, Rect> places[] = {
      {plan::firstTrace, {10, 10, 340, 240}},      {plan::leftSpectrum, {366, 10, 160, 240}},
      {plan::frequencyAxis, {528, 10, 32, 240}},   {plan::rightSpectrum, {562, 10, 160, 240}},
      {plan::leftRuler, {366, 252, 160, 24}},      {plan::rightRuler, {562, 252, 160, 24}},
      {plan::coherenceGraph, {738, 10, 130, 240}}, {plan::firstNumbers, {882, 10, 132, 117}},
      {plan::secondNumbers, {882, 133, 132, 117}}, {plan::secondTrace, {10, 284, 340, 240}},
      {plan::messagePanel, {366, 284, 356, 256}},  {plan::startPicture, {454, 322, 180, 200}},
      {plan::controlPanel, {732, 284, 282, 396}},  {plan::statusLabel, {744, 288, 258, 52}},
      {plan::noteBox, {744, 343, 258, 26}},        {plan::fileNameCaption, {744, 378, 74, 26}},
      {plan::fileNameBox, {820, 378, 182, 26}},    {plan::subjectCaption, {744, 409, 74, 26}},
      {plan::subjectBox, {820, 409, 182, 26}},     {plan::ocularCheck, {744, 440, 258, 24}},
      {plan::dateLabel, {744, 471, 148, 20}},      {plan::blockLabel, {896, 471, 106, 20}},
      {plan::timeLabel, {744, 493, 148, 20}},      {plan::replayPositionLabel, {896, 493, 106, 20}},
      {plan::zLabel, {744, 516, 258, 38}},         {plan::amplitudeLabel, {744, 566, 258, 18}},
      {plan::amplitudeBar, {744, 587, 258, 20}},   {plan::speedLabel, {744, 619, 258, 18}},
      {plan::speedBar, {744, 640, 258, 20}},       {plan::timeStrip, {62, 554, 640, 84}},
      {plan::slider, {62, 658, 640, 22}},          {plan::buttonRow, {10, 688, 1004, 34}}};
  for (const auto& [place, expected] : places)
    EXPECT_EQ(std::tuple(place.x, place.y, place.width, place.height),
              std::tuple(expected.x, expected.y, expected.width, expected.height));
  EXPECT_EQ(std::pair(plan::width, plan::height), std::pair(1024, 730));
}

}  // namespace
}  // namespace korvinel
