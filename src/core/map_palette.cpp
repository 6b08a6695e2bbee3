#include "core/map_palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

bool secondInForce = false;

// A colour in CIE 1976 L*a*b*, in which equal distances look equal.
struct Lab {
  double lightness;
  double a;
  double b;
};

// The ends of a straight line through it, from a dark blue to a bright yellow: those who lack one
// kind of cone see the same differences there.
constexpr Lab darkest{20, 16, -42};
constexpr Lab brightest{93, -10, 64};

// CIE 15: from the cube root's scale back to a share of the reference white.
double share(double root) {
  constexpr double knee = 6.0 / 29;
  return root > knee ? root * root * root : 3 * knee * knee * (root - 4.0 / 29);
}

// IEC 61966-2-1: a linear part as one of 0 to 255, and back.
std::uint8_t encoded(double linear) {
  const double part =
      linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
  return static_cast<std::uint8_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

double decoded(std::uint8_t part) {
  const double share = part / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

// By the primaries and the white (D65) of IEC 61966-2-1.
Colour colourOf(const Lab& lab) {
  const double root = (lab.lightness + 16) / 116;
  const double x = 0.95047 * share(root + lab.a / 500);
  const double y = share(root);
  const double z = 1.08883 * share(root - lab.b / 200);
  return {encoded(3.2404542 * x - 1.5371385 * y - 0.4985314 * z),
          encoded(-0.9692660 * x + 1.8760108 * y + 0.0415560 * z),
          encoded(0.0556434 * x - 0.2040259 * y + 1.0572252 * z)};
}

std::array<Colour, 256> secondShades() {
  std::array<Colour, 256> shades;
  for (std::size_t i = 0; i < shades.size(); ++i) {
    const double way = static_cast<double>(i) / (shades.size() - 1);
    const auto between = [way](double from, double to) { return from + (to - from) * way; };
    shades[i] = colourOf({between(darkest.lightness, brightest.lightness),
                          between(darkest.a, brightest.a), between(darkest.b, brightest.b)});
  }
  return shades;
}

// Shades of maps have no green, and their red and blue add up.
bool isShade(Colour colour) { return colour.green == 0 && colour.red + colour.blue == 255; }

}  // namespace

bool secondColoursInForce() { return secondInForce; }

void useSecondColours(bool on) { secondInForce = on; }

Colour shownColour(Colour given) {
  if (!secondInForce || !isShade(given)) return given;
  static const std::array<Colour, 256> shades = secondShades();
  return shades[given.blue];
}

Colour shownInk(Colour given, Colour ground) { return secondInForce ? inkOn(ground) : given; }

double luminance(Colour colour) {
  return 0.2126 * decoded(colour.red) + 0.7152 * decoded(colour.green) +
         0.0722 * decoded(colour.blue);
}

Colour inkOn(Colour ground) {
  // As bright as it must be for black and white to stand out alike: (1 + 0.05) / (y + 0.05) is
  // (y + 0.05) / (0 + 0.05) there.
  constexpr double middle = 0.1791;
  return luminance(ground) > middle ? black : white;
}
