// Makes the program's pictures: the splash picture, the banner of the version window and the icon
// in its sizes, all drawn by code. Writes PNG files into the folder given.
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace {

const QColor night(14, 20, 17);
const QColor forest(24, 46, 34);
const QColor wireGreen(88, 230, 120);
const QColor wireRed(226, 74, 62);
const QColor leafLight(150, 214, 96);
const QColor leafDark(46, 120, 58);
const QColor lettering(236, 244, 232);

// A fuel map's usual shape over load `u` and engine speed `v`, both 0 to 1: 0 to 1.
double surfaceHeight(double u, double v, double lift) {
  const double ridge = std::exp(-12 * std::pow(v - 0.62, 2));
  return std::pow(u, 1.4) * (0.45 + 0.4 * ridge) + 0.12 * v + lift * std::sin(3.2 * u + 2 * v);
}

QPointF surfacePoint(const QRectF& area, double u, double v, double lift) {
  const double x = area.left() + area.width() * (0.68 * u + 0.32 * v);
  const double ground = area.bottom() - area.height() * 0.34 * v;
  return {x, ground - area.height() * 0.75 * surfaceHeight(u, v, lift)};
}

void drawSurface(QPainter& painter, const QRectF& area, QColor colour, double lift) {
  constexpr int meshes = 15;
  for (int j = 0; j <= meshes; ++j) {
    QPainterPath along;
    QPainterPath across;
    for (int i = 0; i <= meshes; ++i) {
      const double s = double(i) / meshes;
      const double t = double(j) / meshes;
      const QPointF a = surfacePoint(area, s, t, lift);
      const QPointF b = surfacePoint(area, t, s, lift);
      i == 0 ? along.moveTo(a) : along.lineTo(a);
      i == 0 ? across.moveTo(b) : across.lineTo(b);
    }
    colour.setAlpha(230 - 8 * j);
    painter.setPen(QPen(colour, area.width() / 420));
    painter.drawPath(along);
    painter.drawPath(across);
  }
}

// One side of a leaf's toothed edge, from the tip at (0, -1) to the foot at (0, 1).
void addToothedSide(QPainterPath& path, double side, bool downward) {
  constexpr int teeth = 9;
  for (int i = 0; i <= 2 * teeth; ++i) {
    const int step = downward ? i : 2 * teeth - i;
    const double y = -1 + 2.0 * step / (2 * teeth);
    const double belly = 0.52 * std::sin(std::numbers::pi * std::pow((y + 1) / 2, 0.8));
    path.lineTo(side * (belly + (step % 2 == 1 ? 0.07 : 0.0)), y - (step % 2 == 1 ? 0.05 : 0.0));
  }
}

QPainterPath leafOutline() {
  QPainterPath path;
  path.moveTo(0, -1);
  addToothedSide(path, 1, true);
  addToothedSide(path, -1, false);
  path.closeSubpath();
  return path;
}

void drawLeaf(QPainter& painter, QPointF middle, double size, double angle) {
  painter.save();
  painter.translate(middle);
  painter.rotate(angle);
  painter.scale(size, size);
  QLinearGradient green(-0.5, -1, 0.5, 1);
  green.setColorAt(0, leafLight);
  green.setColorAt(1, leafDark);
  painter.setPen(Qt::NoPen);
  painter.setBrush(green);
  painter.drawPath(leafOutline());
  painter.setPen(QPen(QColor(236, 248, 214, 210), 0.045, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(0, -0.86), QPointF(0, 1.3));
  painter.setPen(QPen(QColor(236, 248, 214, 150), 0.028, Qt::SolidLine, Qt::RoundCap));
  for (int i = 0; i < 6; ++i) {
    const double y = -0.5 + 0.24 * i;
    const double reach = 0.42 * std::sin(std::numbers::pi * std::pow((y + 0.82) / 2, 0.8));
    for (const double side : {-1.0, 1.0}) {
      painter.drawLine(QPointF(0, y), QPointF(side * reach, y - 0.2));
    }
  }
  painter.restore();
}

void drawGround(QPainter& painter, const QRectF& area) {
  QLinearGradient ground(area.topLeft(), area.bottomRight());
  ground.setColorAt(0, forest);
  ground.setColorAt(1, night);
  painter.fillRect(area, ground);
  QRadialGradient glow(area.center() + QPointF(area.width() * 0.16, area.height() * 0.1),
                       area.width() * 0.5);
  glow.setColorAt(0, QColor(70, 150, 90, 80));
  glow.setColorAt(1, QColor(70, 150, 90, 0));
  painter.fillRect(area, glow);
}

void drawName(QPainter& painter, QPointF foot, int pixels) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(pixels);
  font.setBold(true);
  font.setLetterSpacing(QFont::PercentageSpacing, 112);
  painter.setFont(font);
  painter.setPen(QColor(0, 0, 0, 150));
  painter.drawText(foot + QPointF(pixels / 18.0, pixels / 18.0), QStringLiteral("ZELKOVA"));
  painter.setPen(lettering);
  painter.drawText(foot, QStringLiteral("ZELKOVA"));
}

QImage canvas(int width, int height) {
  QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

QImage splash(double scale) {
  QImage image = canvas(int(640 * scale), int(360 * scale));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  drawGround(painter, {0, 0, 640, 360});
  drawSurface(painter, {60, 110, 540, 235}, wireRed, -0.07);
  drawSurface(painter, {60, 100, 540, 235}, wireGreen, 0.05);
  drawLeaf(painter, {78, 84}, 42, 28);
  drawName(painter, {140, 104}, 58);
  return image;
}

QImage banner(double scale) {
  QImage image = canvas(int(440 * scale), int(96 * scale));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  drawGround(painter, {0, 0, 440, 96});
  drawSurface(painter, {200, 10, 240, 84}, wireGreen, 0.05);
  drawName(painter, {24, 62}, 36);
  return image;
}

// A leaf over a map's coloured cells; small sizes have fewer cells.
QImage icon(int size) {
  QImage image = canvas(size, size);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath border;
  border.addRoundedRect(QRectF(0, 0, size, size), size * 0.18, size * 0.18);
  painter.setClipPath(border);
  painter.fillRect(image.rect(), night);
  const int cells = size < 32 ? 3 : 5;
  const double pitch = double(size) / cells;
  for (int r = 0; r < cells; ++r) {
    for (int c = 0; c < cells; ++c) {
      const double share = (c + (cells - 1 - r)) / (2.0 * (cells - 1));
      const QColor cell(int(205 * (1 - share)), 24, int(220 * share));
      painter.fillRect(QRectF(c * pitch, r * pitch, pitch * 0.94, pitch * 0.94), cell);
    }
  }
  drawLeaf(painter, {size * 0.5, size * 0.45}, size * 0.4, 24);
  return image;
}

// The colours of a map's cells from the lowest value to the highest.
QImage colourScale() {
  constexpr int cells = 32;
  constexpr int side = 20;
  QImage image = canvas(cells * side, side / 2);
  QPainter painter(&image);
  for (int i = 0; i < cells; ++i) {
    const int blue = i * 255 / (cells - 1);
    painter.fillRect(i * side, 0, side - 1, side / 2, QColor(255 - blue, 0, blue));
  }
  return image;
}

bool save(const QImage& image, const QString& path) {
  if (image.save(path, "PNG")) return true;
  std::fprintf(stderr, "can't write %s\n", qPrintable(path));
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  if (argc != 2) {
    std::fputs("usage: make_pictures FOLDER\n", stderr);
    return 2;
  }
  const QString folder = QString::fromLocal8Bit(argv[1]) + QLatin1Char('/');
  bool saved = save(splash(1), folder + QStringLiteral("splash.png")) &&
               save(splash(2), folder + QStringLiteral("splash@2x.png")) &&
               save(colourScale(), folder + QStringLiteral("scale.png")) &&
               save(banner(1), folder + QStringLiteral("banner.png")) &&
               save(banner(2), folder + QStringLiteral("banner@2x.png"));
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    saved = saved && save(icon(size), folder + QStringLiteral("icon%1.png").arg(size));
  }
  return saved ? 0 : 1;
}
