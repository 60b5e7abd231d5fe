#include "app/status_line.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QPixmap>

namespace korvinel {
namespace {

using guidance::Tone;

TEST(StatusLine, ItsTextIsItsNameForAScreenReader) {
  StatusLine line(nullptr);
  line.show({Tone::recording, "Registrazione 2:06", "Registrazione"});
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&line)->text(QAccessible::Name), "Registrazione 2:06");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&line)->role(), QAccessible::Notification);
  EXPECT_EQ(line.accessibleDescription(), "Stato dell'esame");
  EXPECT_EQ(line.focusPolicy(), Qt::NoFocus);
}

TEST(StatusLine, EveryToneHasALookOfItsOwn) {
  std::vector<QImage> looks;
  for (const Tone tone :
       {Tone::calm, Tone::busy, Tone::listening, Tone::recording, Tone::done, Tone::warning, Tone::fault}) {
    StatusLine line(nullptr);
    line.resize(400, 40);
    line.show({tone, "Una riga", ""});
    const QImage look = line.grab().toImage();
    for (const QImage& other : looks) EXPECT_NE(look, other);
    looks.push_back(look);
  }
}

}  // namespace
}  // namespace korvinel
