#include "platform/qt/printed_part.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace korvinel::platform {
namespace {

TEST(PageOf, IsTheWindowUnlessAPartOfItIsNamed) {
  QWidget window;
  QWidget part(&window);
  EXPECT_EQ(pageOf(nullptr), nullptr);
  EXPECT_EQ(pageOf(&window), &window);
  printOnly(window, part);
  EXPECT_EQ(pageOf(&window), &part);
}

}  // namespace
}  // namespace korvinel::platform
