// What the program and its module for printing tell one another.
#pragma once

#include <QPageLayout>
#include <QString>
#include <functional>

class QPagedPaintDevice;
class QWidget;

struct Preview {
  QWidget* parent = nullptr;
  QString title;
  bool landscape = false;
  QString printCaption, pdfCaption;
  // For a reader of the screen; they have no captions.
  QString zoomName, pageName, pagesName, moreName;
  // False where the device refused.
  std::function<bool(QPagedPaintDevice&)> paint;
  std::function<void(const QPageLayout&)> savePdf;
  std::function<void()> tellNoPrinter, tellNotPrinted;
};

// The module's one routine, by this name.
using ShowPreview = void (*)(const Preview& preview);
constexpr const char* showPreviewName = "zelkovaShowPreview";
