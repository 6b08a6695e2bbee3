#include "frontend/qt/text.h"

namespace {

constexpr qsizetype longTip = 60;  // characters

}  // namespace

QString shownCaption(const std::string& text) {
  return shown(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString shownTip(const std::string& text) {
  QString tip = shown(text);
  if (tip.size() <= longTip && !tip.contains(QLatin1Char('<'))) return tip;
  return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(tip.toHtmlEscaped());
}
