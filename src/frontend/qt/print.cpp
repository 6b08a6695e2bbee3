#include "frontend/qt/print.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QString>

#include "controls/print_job.h"
#include "core/dialogs.h"
#include "core/wording.h"
#include "frontend/qt/picture_painting.h"
#include "frontend/qt/print_module.h"
#include "frontend/qt/text.h"
#include "platform/failure.h"

namespace {

constexpr Wording noModule{"この環境では印刷できません。プログラムの印刷用モジュールがありません。",
                           "Nothing can be printed here: the program's module for printing is "
                           "missing."};
constexpr Wording noPrinter{"プリンターがありません。「PDF」でファイルに保存できます。",
                            "There is no printer. The pages can be saved with \"PDF\"."};
constexpr Wording notPrinted{"プリンターが受け付けませんでした。",
                             "The printer didn't take the pages."};

ShowPreview routineOfModule() {
  static QLibrary library(QCoreApplication::applicationDirPath() +
                          QStringLiteral("/zelkova_print"));
  return reinterpret_cast<ShowPreview>(library.resolve(showPreviewName));
}

}  // namespace

void showPreview(QWidget* parent, const PrintJob& job) {
  const ShowPreview show = routineOfModule();
  if (!show) return showRefusal(noModule);
  Preview preview;
  preview.parent = parent;
  preview.title = shown(job.title);
  preview.landscape = job.landscape;
  preview.printCaption = shown(captioned({"印刷...", "Print..."}));
  preview.pdfCaption = QStringLiteral("PDF...");
  preview.zoomName = shown(captioned({"拡大率", "Zoom"}));
  preview.pageName = shown(captioned({"ページ", "Page"}));
  preview.pagesName = shown(captioned({"ページのプレビュー", "Preview of the pages"}));
  preview.moreName = shown(captioned({"その他のボタン", "More buttons"}));
  // No failure leaves through the toolkit.
  preview.paint = [&job](QPagedPaintDevice& device) {
    bool painted = false;
    return trapFailure([&] { painted = paintPages(device, job); }) == 0 && painted;
  };
  preview.savePdf = [&job](const QPageLayout& layout) {
    job.save([&job, &layout] { return pdfBytes(job, layout); });
  };
  preview.tellNoPrinter = [] { showRefusal(noPrinter); };
  preview.tellNotPrinted = [] { showRefusal(notPrinted); };
  show(preview);
}
