// Makes the program's pictures: the splash picture, the banner of the version window and the icon
// in its sizes, all drawn by code. Writes PNG files into the folder given.
#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QTransform>
#include <array>
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
constexpr std::array iconSizes{16, 24, 32, 48, 64, 128, 256};

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

// The letters of the name, drawn here because a build may run where there are no fonts. Corners in
// shares of the letters' height, from the upper left; odd-even filling leaves the holes free.
struct Letter {
  double width;
  QList<QPolygonF> outlines;
};

QPolygonF ring(double width, double height, QPointF middle) {
  QPainterPath path;
  path.addEllipse(middle, width / 2, height / 2);
  return path.toFillPolygon(QTransform::fromScale(100, 100)) * QTransform::fromScale(0.01, 0.01);
}

QList<Letter> nameLetters() {
  return {
      {0.78,
       {QPolygonF({{0, 0},
                   {.76, 0},
                   {.76, .18},
                   {.28, .8},
                   {.78, .8},
                   {.78, 1},
                   {0, 1},
                   {0, .82},
                   {.48, .2},
                   {0, .2}})}},
      {0.68,
       {QPolygonF({{0, 0},
                   {.68, 0},
                   {.68, .2},
                   {.24, .2},
                   {.24, .39},
                   {.64, .39},
                   {.64, .59},
                   {.24, .59},
                   {.24, .8},
                   {.68, .8},
                   {.68, 1},
                   {0, 1}})}},
      {0.66, {QPolygonF({{0, 0}, {.24, 0}, {.24, .8}, {.66, .8}, {.66, 1}, {0, 1}})}},
      {0.92,
       {QPolygonF({{0, 0},
                   {.24, 0},
                   {.24, .38},
                   {.6, 0},
                   {.88, 0},
                   {.44, .46},
                   {.92, 1},
                   {.62, 1},
                   {.24, .58},
                   {.24, 1},
                   {0, 1}})}},
      {0.98, {ring(0.98, 1.04, {.49, .5}), ring(0.5, 0.64, {.49, .5})}},
      {0.92, {QPolygonF({{0, 0}, {.25, 0}, {.46, .72}, {.67, 0}, {.92, 0}, {.6, 1}, {.32, 1}})}},
      {0.92,
       {QPolygonF(
            {{.32, 0}, {.6, 0}, {.92, 1}, {.67, 1}, {.61, .81}, {.31, .81}, {.25, 1}, {0, 1}}),
        QPolygonF({{.46, .24}, {.555, .62}, {.365, .62}})}}};
}

// `foot` is the lower left corner of the first letter.
void drawName(QPainter& painter, QPointF foot, double height) {
  constexpr double gap = 0.16;
  QPainterPath path;
  double x = 0;
  for (const auto& [width, outlines] : nameLetters()) {
    for (const QPolygonF& outline : outlines) {
      path.addPolygon(outline.translated(x, -1));
      path.closeSubpath();
    }
    x += width + gap;
  }
  const QPainterPath sized = QTransform::fromScale(height, height).map(path);
  painter.fillPath(sized.translated(foot + QPointF(height / 13, height / 13)),
                   QColor(0, 0, 0, 150));
  painter.fillPath(sized.translated(foot), lettering);
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
  drawName(painter, {142, 104}, 43);
  return image;
}

QImage banner(double scale) {
  QImage image = canvas(int(440 * scale), int(96 * scale));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  drawGround(painter, {0, 0, 440, 96});
  drawSurface(painter, {200, 10, 240, 84}, wireGreen, 0.05);
  drawName(painter, {24, 62}, 27);
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

// All sizes in one file, as the resources of a Windows program take them: a directory, then
// pictures.
bool saveIcons(const QString& path) {
  constexpr quint32 headBytes = 6;
  constexpr quint32 entryBytes = 16;
  QByteArray pictures;
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  QDataStream head(&file);
  head.setByteOrder(QDataStream::LittleEndian);
  head << quint16(0) << quint16(1) << quint16(iconSizes.size());
  for (const int size : iconSizes) {
    QBuffer picture;
    picture.open(QIODevice::WriteOnly);
    icon(size).save(&picture, "PNG");
    const quint8 side = size < 256 ? quint8(size) : 0;
    const quint32 offset = headBytes + entryBytes * quint32(iconSizes.size());
    head << side << side << quint16(0) << quint16(1) << quint16(32) << quint32(picture.size())
         << offset + quint32(pictures.size());
    pictures += picture.data();
  }
  return file.write(pictures) == pictures.size() && file.flush();
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
  // The splash picture covers all of its window; without an opacity it is read in two thirds of the
  // time, and the program's start waits for it.
  constexpr QImage::Format opaque = QImage::Format_RGB32;
  bool saved = save(splash(1).convertToFormat(opaque), folder + QStringLiteral("splash.png")) &&
               save(splash(2).convertToFormat(opaque), folder + QStringLiteral("splash@2x.png")) &&
               save(colourScale(), folder + QStringLiteral("scale.png")) &&
               save(banner(1), folder + QStringLiteral("banner.png")) &&
               save(banner(2), folder + QStringLiteral("banner@2x.png"));
  for (const int size : iconSizes) {
    saved = saved && save(icon(size), folder + QStringLiteral("icon%1.png").arg(size));
  }
  return saved && saveIcons(folder + QStringLiteral("../zelkova.ico")) ? 0 : 1;
}
