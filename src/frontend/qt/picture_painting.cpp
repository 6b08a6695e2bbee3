#include "frontend/qt/picture_painting.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QtMath>
#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "frontend/qt/canvas_view.h"
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
  constexpr Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  QFont font = QApplication::font();
  font.setPixelSize(box.fontPixels);
  // Text keeps its shape at any density.
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setBold(box.bold);
  painter.setFont(font);
  painter.setPen(shown(box.ink));
  painter.drawText(area.adjusted(PictureBox::room, 0, -PictureBox::room, 0),
                   static_cast<int>(alignments[box.align] | Qt::AlignVCenter), shown(box.text));
}

void paintPicture(QPainter& painter, const Picture& picture) {
  paintItems(painter, picture.drawing);
  for (const PictureBox& box : picture.boxes) paintBox(painter, box);
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
    painter.setClipRect(0, 0, picture.width, picture.height);
    paintPicture(painter, picture);
  }
  QBuffer buffer;
  image.save(&buffer, "PNG");
  return buffer.data().toStdString();
}

bool paintPages(QPagedPaintDevice& device, const PrintJob& job) {
  const QSizeF area = device.pageLayout().paintRect(QPageLayout::Point).size();
  const std::vector<Picture> pages = job.pages({qFloor(area.width()), qFloor(area.height())});
  QPainter painter;
  if (!painter.begin(&device)) return false;
  bool further = false;
  for (const Picture& page : pages) {
    if (std::exchange(further, true) && !device.newPage()) return false;
    const double scale =
        std::min(double(device.width()) / page.width, double(device.height()) / page.height);
    painter.save();
    painter.scale(scale, scale);
    paintPicture(painter, page);
    painter.restore();
  }
  return painter.end();
}

std::string pdfBytes(const PrintJob& job, const QPageLayout& layout) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setPageLayout(layout);
  writer.setTitle(shown(job.title));
  writer.setCreator(QStringLiteral("ZELKOVA"));
  if (!paintPages(writer, job)) throw Failure(outOfMemory);
  return buffer.data().toStdString();
}
