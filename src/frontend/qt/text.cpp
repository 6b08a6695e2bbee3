#include "frontend/qt/text.h"

#include "controls/control.h"
#include "controls/letters.h"

namespace {

constexpr qsizetype longTip = 60;  // characters

}  // namespace

QString shownCaption(const std::string& text) {
  return shown(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString letteredCaption(const Captioned& record) {
  const std::string& caption = record.caption();
  const std::size_t place = placeOfLetter(caption, record.letter());
  if (place == std::string::npos) return shownCaption(caption);
  return shownCaption(caption.substr(0, place)) + QLatin1Char('&') +
         shownCaption(caption.substr(place));
}

QString shownTip(const std::string& text) {
  QString tip = shown(text);
  if (tip.size() <= longTip && !tip.contains(QLatin1Char('<'))) return tip;
  return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(tip.toHtmlEscaped());
}
