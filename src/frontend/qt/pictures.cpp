#include "frontend/qt/pictures.h"

#include <QCoreApplication>

namespace {

QString pathOf(const QString& name) {
  return QCoreApplication::applicationDirPath() + QStringLiteral("/pictures/") + name;
}

}  // namespace

QPixmap picture(const QString& name) {
  // The icon engine picks the file for the screen's density by its "@2x".
  const QIcon icon(pathOf(name));
  const QList<QSize> sizes = icon.availableSizes();
  return sizes.isEmpty() ? QPixmap() : icon.pixmap(sizes.first());
}

QIcon programIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    // Told its size, a file is read when a window first asks for it.
    icon.addFile(pathOf(QStringLiteral("icon%1.png").arg(size)), QSize(size, size));
  }
  return icon;
}
