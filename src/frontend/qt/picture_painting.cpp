#include "frontend/qt/picture_painting.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <cstdint>

#include "frontend/qt/look.h"
#include "frontend/qt/text.h"
#include "platform/failure.h"

namespace {

void paintBox(QPainter& painter, const PictureBox& box) {
  const QRect area(box.x, box.y, box.width, box.height);
  if (box.fill) painter.fillRect(area, shown(*box.fill));
  if (box.border) {
    painter.setPen(shown(*box.border));
    painter.drawRect(area);
  }
  if (box.text.empty()) return;
  constexpr int room = 4;  // pixels at the left and the right
  constexpr Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  QFont font = QApplication::font();
  font.setPixelSize(Picture::fontPixels);
  font.setBold(box.bold);
  painter.setFont(font);
  painter.setPen(shown(box.ink));
  painter.drawText(area.adjusted(room, 0, -room, 0),
                   static_cast<int>(alignments[box.align] | Qt::AlignVCenter), shown(box.text));
}

}  // namespace

std::string pngBytes(const Picture& picture) {
  constexpr std::int64_t mostPixels = 60'000'000;
  const std::int64_t pixels = std::int64_t{picture.width} * picture.height;
  if (pixels > mostPixels) throw Failure(outOfMemory);
  const int density = pixels * 4 > mostPixels ? 1 : 2;
  QImage image(picture.width * density, picture.height * density, QImage::Format_RGB32);
  if (image.isNull()) throw Failure(outOfMemory);
  image.fill(shown(picture.ground));
  {
    QPainter painter(&image);
    painter.scale(density, density);
    for (const PictureBox& box : picture.boxes) paintBox(painter, box);
  }
  QBuffer buffer;
  image.save(&buffer, "PNG");
  return buffer.data().toStdString();
}
