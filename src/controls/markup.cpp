#include "controls/markup.h"

#include "platform/numbers.h"

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      default:
        // XML has no other control characters.
        result += static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' ? ' ' : c;
    }
  }
  return result;
}

std::string colourText(Colour colour) {
  return '#' + hexDigits(colour.red << 16 | colour.green << 8 | colour.blue, 3);
}
