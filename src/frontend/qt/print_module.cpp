// The print module: the preview, and printers.
#include "frontend/qt/print_module.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QGraphicsView>
#include <QLineEdit>
#include <QLocale>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

namespace {

// Where no printer tells its paper, the country does.
void choosePaper(QPrinter& printer, bool landscape) {
  const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  if (printer.outputFormat() == QPrinter::PdfFormat) {
    printer.setPageSize(QPageSize(letter ? QPageSize::Letter : QPageSize::A4));
  }
  constexpr QMarginsF margins(15, 12, 15, 12);
  printer.setPageMargins(margins, QPageLayout::Millimeter);
  printer.setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void print(QPrinter& printer, QPrintPreviewDialog& window, const Preview& preview) {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) return preview.tellNoPrinter();
  QPrintDialog dialog(&printer, &window);
  // Files are written by the program, which keeps what they replace.
  dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  if (dialog.exec() != QDialog::Accepted) return;
  if (!preview.paint(printer) || printer.printerState() == QPrinter::Error) {
    return preview.tellNotPrinted();
  }
  window.accept();
}

void name(QWidget& window, const Preview& preview) {
  for (QLineEdit* const box : window.findChildren<QLineEdit*>()) {
    box->setAccessibleName(preview.pageName);
  }
  for (QComboBox* const box : window.findChildren<QComboBox*>()) {
    box->setAccessibleName(preview.zoomName);
    box->view()->setAccessibleName(preview.zoomName);
    if (box->lineEdit()) box->lineEdit()->setAccessibleName(preview.zoomName);
  }
  for (QGraphicsView* const pages : window.findChildren<QGraphicsView*>()) {
    pages->setAccessibleName(preview.pagesName);
    pages->viewport()->setAccessibleName(preview.pagesName);
    if (pages->parentWidget()) pages->parentWidget()->setAccessibleName(preview.pagesName);
  }
}

// The toolkit's own are for the mouse alone.
void letKeysReachButtons(QToolBar& bar, const Preview& preview) {
  for (QToolButton* const button : bar.findChildren<QToolButton*>()) {
    button->setFocusPolicy(Qt::TabFocus);
    if (!button->defaultAction()) button->setAccessibleName(preview.moreName);
  }
}

}  // namespace

extern "C" Q_DECL_EXPORT void zelkovaShowPreview(const Preview& preview) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(preview.title);
  choosePaper(printer, preview.landscape);
  QPrintPreviewDialog window(&printer, preview.parent);
  window.setWindowFlag(Qt::WindowMaximizeButtonHint);
  constexpr QSize usual(1000, 740);
  window.resize(usual.boundedTo(window.screen()->availableSize() * 9 / 10));
  QObject::connect(&window, &QPrintPreviewDialog::paintRequested,
                   [&preview](QPrinter* shown) { preview.paint(*shown); });
  // In place of the toolkit's own button, which stands last: that one writes files itself.
  auto* const bar = window.findChild<QToolBar*>();
  if (bar && !bar->actions().isEmpty()) {
    QAction* const own = bar->actions().constLast();
    bar->removeAction(own);
    QAction* const paper = bar->addAction(own->icon(), preview.printCaption);
    paper->setShortcut(QKeySequence::Print);
    QObject::connect(paper, &QAction::triggered, [&] { print(printer, window, preview); });
    QAction* const pdf = bar->addAction(preview.pdfCaption);
    pdf->setShortcut(QKeySequence::Save);
    QObject::connect(pdf, &QAction::triggered, [&] { preview.savePdf(printer.pageLayout()); });
    letKeysReachButtons(*bar, preview);
  }
  name(window, preview);
  window.exec();
}
