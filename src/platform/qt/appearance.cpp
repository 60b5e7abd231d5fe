#include "platform/qt/appearance.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QPixmapCache>
#include <QProxyStyle>
#include <QToolTip>
#include <QTranslator>

namespace korvinel::platform {
namespace {

/// Check marks are scaled with the letters beside them, as the letters are with the window. Dialogs of the program and
/// of the toolkit look alike: no pictures on their buttons.
class CalmStyle : public QProxyStyle {
 public:
  CalmStyle() : QProxyStyle("fusion") {}

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
  }

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    constexpr int usualLetters = 13;
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    const bool isMark = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
    if (!isMark || widget == nullptr || widget->font().pixelSize() <= usualLetters) return usual;
    return usual * widget->font().pixelSize() / usualLetters;
  }
};

/// The style caches a picture of every part that it paints, under a key with the number of the window's palette or
/// icon, which are new in every window. The toolkit (6.4) drops old pictures but never their keys, even when its cache
/// is cleared: each list of files, box and report left kilobytes. A picture that is not cached has no key.
void keepNoPaintedParts() { QPixmapCache::setCacheLimit(0); }

/// The toolkit's own texts, such as the headings of the file dialog and the context menus.
void speakItalian() {
  auto* translator = new QTranslator(qApp);
  if (translator->load("qtbase_it", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(translator);
}

}  // namespace

/// Without ligatures: this font would show "1024x768" with a multiplication sign.
QFont calmLetters() {
  constexpr int pointSize = 10;
  QFont letters(QStringList{"Inter", "Segoe UI", "DejaVu Sans"}, pointSize);
  letters.setStyleStrategy(QFont::PreferNoShaping);
  return letters;
}

QPalette calmColours() {
  const QColor ground(236, 239, 241);
  const QColor ink(20, 28, 32);
  const QColor pale(120, 130, 136);
  QPalette colours(ground, ground);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    colours.setColor(role, ink);
    colours.setColor(QPalette::Disabled, role, pale);
  }
  colours.setColor(QPalette::Base, Qt::white);
  colours.setColor(QPalette::AlternateBase, QColor(245, 247, 248));
  colours.setColor(QPalette::Disabled, QPalette::Base, QColor(226, 230, 232));
  colours.setColor(QPalette::PlaceholderText, pale);
  colours.setColor(QPalette::Highlight, QColor(25, 118, 210));
  colours.setColor(QPalette::HighlightedText, Qt::white);
  colours.setColor(QPalette::ToolTipBase, QColor(255, 253, 231));
  colours.setColor(QPalette::ToolTipText, ink);
  return colours;
}

void applyAppearance() {
  QApplication::setStyle(new CalmStyle);
  QApplication::setPalette(calmColours());
  QToolTip::setPalette(calmColours());
  QApplication::setFont(calmLetters());
  QToolTip::setFont(calmLetters());
  keepNoPaintedParts();
  speakItalian();
}

}  // namespace korvinel::platform
