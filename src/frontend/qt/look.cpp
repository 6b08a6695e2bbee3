#include "frontend/qt/look.h"

#include <QApplication>
#include <QFontInfo>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace {

constexpr int gridFontPixels = 11;
constexpr int calmSpacing = 8;

class Look : public QProxyStyle {
 public:
  Look() : QProxyStyle(QStringLiteral("Fusion")) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    switch (metric) {
      case PM_LayoutHorizontalSpacing:
      case PM_LayoutVerticalSpacing:
        return calmSpacing;
      default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

  // A title that the keys have reached looks like one that the mouse has opened.
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    const auto* const title = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuBarItem || !title || !(title->state & State_Selected)) {
      return QProxyStyle::drawControl(element, option, painter, widget);
    }
    QStyleOptionMenuItem reached = *title;
    reached.state |= State_Sunken;
    QProxyStyle::drawControl(element, &reached, painter, widget);
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    // A press on a grid or a canvas must not wait for what a menu still animates.
    if (hint == SH_Widget_Animation_Duration) return 0;
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }
};

QPalette calmPalette() {
  constexpr QColor ground = groundColour, ink = inkColour, faint = faintColour;
  constexpr QColor accent = accentColour;
  QPalette palette(buttonColour, ground);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(248, 249, 251));
  palette.setColor(QPalette::WindowText, ink);
  palette.setColor(QPalette::Text, ink);
  palette.setColor(QPalette::ButtonText, ink);
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, accent);
  palette.setColor(QPalette::ToolTipBase, QColor(255, 252, 232));
  palette.setColor(QPalette::ToolTipText, ink);
  palette.setColor(QPalette::PlaceholderText, faint);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, ground);
  return palette;
}

// Names Japanese fonts before the system picks one of another script for the same characters.
QFont withJapanese(QFont font) {
  QStringList families{QFontInfo(font).family()};
  for (const char* family : {"Noto Sans CJK JP", "Noto Sans JP", "IPAPGothic", "IPAGothic",
                             "Yu Gothic UI", "Meiryo UI", "Hiragino Sans"}) {
    families << QString::fromLatin1(family);
  }
  font.setFamilies(families);
  return font;
}

}  // namespace

void dressApplication() {
  QApplication::setStyle(new Look);
  QApplication::setPalette(calmPalette());
  QApplication::setFont(withJapanese(QApplication::font()));
}

QFont gridFont() {
  QFont font = QApplication::font();
  font.setPixelSize(gridFontPixels);
  font.setHintingPreference(QFont::PreferVerticalHinting);
  return font;
}

QFont headlineFont() {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  font.setBold(true);
  return font;
}
