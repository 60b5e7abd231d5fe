#include "app/lamp_row.h"

#include <QAccessible>
#include <QHBoxLayout>

#include "platform/qt/qt_text.h"

namespace korvinel {

LampRow::LampRow(QWidget* parent) : QWidget(parent) {
  setObjectName("Qualità del segnale");
  setAccessibleName("Segnale");
  setAccessibleDescription("Qualità del segnale");
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  constexpr int gap = 4;
  row->setSpacing(gap);
  for (int channel = 1; channel <= eeg::channelCount; ++channel) {
    auto* lamp = new Lamp(channel, this);
    lamps_.at(static_cast<std::size_t>(channel) - 1) = lamp;
    row->addWidget(lamp);
  }
}

void LampRow::display(const guidance::SignalHistory& history) {
  for (Lamp* lamp : lamps_) lamp->display(history);
  if (history.newsCount() == newsSpoken_) return;
  newsSpoken_ = history.newsCount();
  setAccessibleName(platform::toQt(history.news()));
  QAccessibleEvent news(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&news);
}

}  // namespace korvinel
