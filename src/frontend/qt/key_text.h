// What a key types that is held together with Ctrl. The toolkit's own text of such a key is a
// control character, or none.
#pragma once

#include <QChar>
#include <QKeyEvent>

// 0 for a key without a character.
inline char32_t characterWithControl(const QKeyEvent& event) {
  const int key = event.key();
  if (key <= Qt::Key_Space || key >= Qt::Key_Escape) return 0;
  const auto character = static_cast<char32_t>(key);
  return event.modifiers() & Qt::ShiftModifier ? character : QChar::toLower(character);
}
