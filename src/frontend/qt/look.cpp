#include "frontend/qt/look.h"

#include <QApplication>
#include <QFontInfo>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <algorithm>
#include <cstdint>

#include "core/map_palette.h"
#include "frontend/qt/dark_desktop.h"

namespace {

constexpr int gridFontPixels = 11;
constexpr int calmSpacing = 8;
constexpr double leastContrast = 4.5;  // of texts

double luminance(const QColor& colour) {
  const auto part = [](int value) { return static_cast<std::uint8_t>(value); };
  return luminance(Colour{part(colour.red()), part(colour.green()), part(colour.blue())});
}

bool isDark(const QPalette& palette) {
  return luminance(palette.color(QPalette::Window)) <
         luminance(palette.color(QPalette::WindowText));
}

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

  // The toolkit's own style draws edges darker than the window, where a dark one has no room left.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (!hasEdge(element) || !isDark(option->palette) || (!frame && !button)) {
      return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    frame ? drawWithEdge(element, *frame, painter, widget)
          : drawWithEdge(element, *button, painter, widget);
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    // A press on a grid or a canvas must not wait for what a menu still animates.
    if (hint == SH_Widget_Animation_Duration) return 0;
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }

 private:
  static bool hasEdge(PrimitiveElement element) {
    constexpr PrimitiveElement edged[] = {PE_Frame,
                                          PE_FrameLineEdit,
                                          PE_PanelLineEdit,
                                          PE_FrameMenu,
                                          PE_IndicatorCheckBox,
                                          PE_IndicatorRadioButton,
                                          PE_PanelButtonCommand};
    return std::ranges::find(edged, element) != std::end(edged);
  }

  // The style makes the edge of the window's colour.
  template <class Option>
  void drawWithEdge(PrimitiveElement element, Option option, QPainter* painter,
                    const QWidget* widget) const {
    constexpr double share = 0.45;  // of the text in the edge's colour
    constexpr int styleDarkens = 140;
    QPalette& palette = option.palette;
    const QColor edge =
        mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), share);
    palette.setColor(QPalette::Window, edge.lighter(styleDarkens));
    QProxyStyle::drawPrimitive(element, &option, painter, widget);
  }
};

struct CalmColours {
  QColor button, ground, base, otherBase, ink, accent, onAccent, tip, faint;
};

constexpr CalmColours calmLight{
    buttonColour, groundColour, QColor(255, 255, 255), QColor(248, 249, 251),
    inkColour,    accentColour, QColor(255, 255, 255), QColor(255, 252, 232),
    faintColour};
constexpr CalmColours calmDark{QColor(54, 57, 64), QColor(38, 40, 46),    QColor(28, 30, 34),
                               QColor(33, 35, 40), QColor(228, 231, 236), QColor(110, 168, 248),
                               QColor(12, 16, 24), QColor(60, 58, 44),    QColor(160, 165, 174)};

QPalette calmPalette(const CalmColours& colours) {
  QPalette palette(colours.button, colours.ground);
  palette.setColor(QPalette::Base, colours.base);
  palette.setColor(QPalette::AlternateBase, colours.otherBase);
  palette.setColor(QPalette::WindowText, colours.ink);
  palette.setColor(QPalette::Text, colours.ink);
  palette.setColor(QPalette::ButtonText, colours.ink);
  palette.setColor(QPalette::Highlight, colours.accent);
  palette.setColor(QPalette::HighlightedText, colours.onAccent);
  palette.setColor(QPalette::Link, colours.accent);
  palette.setColor(QPalette::ToolTipBase, colours.tip);
  palette.setColor(QPalette::ToolTipText, colours.ink);
  palette.setColor(QPalette::PlaceholderText, colours.faint);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, colours.faint);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, colours.ground);
  return palette;
}

struct TextOn {
  QPalette::ColorRole text;
  QPalette::ColorRole ground;
};

constexpr TextOn textsOnGrounds[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::Text, QPalette::Base},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::HighlightedText, QPalette::Highlight},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::Link, QPalette::Window},
};

// Texts that the desktop's theme made too weak become black or white.
QPalette readable(QPalette palette) {
  for (const auto& [text, ground] : textsOnGrounds) {
    const QColor under = palette.color(QPalette::Active, ground);
    if (contrast(palette.color(QPalette::Active, text), under) >= leastContrast) continue;
    const bool dark = contrast(under, Qt::white) > contrast(under, Qt::black);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      palette.setColor(group, text, dark ? Qt::white : Qt::black);
    }
  }
  return palette;
}

bool sameColours(const QPalette& one, const QPalette& other) {
  return std::ranges::all_of(textsOnGrounds, [&](const TextOn& pair) {
    return one.color(pair.text) == other.color(pair.text) &&
           one.color(pair.ground) == other.color(pair.ground);
  });
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
  auto* const look = new Look;
  QApplication::setStyle(look);
  QApplication::setPalette(paletteFor(QApplication::palette(), look->standardPalette()));
  QApplication::setFont(withJapanese(QApplication::font()));
}

void followDarkDesktop() {
  askForDark([] {
    const bool calm = sameColours(QApplication::palette(), calmPalette(calmLight));
    if (calm) QApplication::setPalette(calmPalette(calmDark));
  });
}

QPalette paletteFor(const QPalette& desktops, const QPalette& toolkits) {
  if (!sameColours(desktops, toolkits)) return readable(desktops);
  return calmPalette(isDark(desktops) ? calmDark : calmLight);
}

double contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

QColor mixed(const QColor& one, const QColor& other, double share) {
  const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return QColor(part(one.red(), other.red()), part(one.green(), other.green()),
                part(one.blue(), other.blue()));
}

QColor faintInk(const QPalette& palette) {
  constexpr double share = 0.3;
  return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), share);
}

QColor absentInk(const QPalette& palette) {
  constexpr double share = 0.5;
  return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), share);
}

QFont gridFont(int percent) {
  QFont font = QApplication::font();
  font.setPixelSize((gridFontPixels * percent + 50) / 100);
  font.setHintingPreference(QFont::PreferVerticalHinting);
  return font;
}

double gridScale(const QFont& font) {
  return static_cast<double>(font.pixelSize()) / gridFontPixels;
}

int fontZoom() {
  constexpr int usualPixels = 12;
  return std::max(QFontInfo(QApplication::font()).pixelSize() * 100 / usualPixels, 100);
}

int byFont(int width) { return width * fontZoom() / 100; }

QFont headlineFont() {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  font.setBold(true);
  return font;
}
