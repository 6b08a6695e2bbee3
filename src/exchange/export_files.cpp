#include "exchange/export_files.h"

#include "controls/desktop.h"
#include "controls/markup.h"
#include "core/dialogs.h"
#include "core/difference_list.h"
#include "core/differences.h"
#include "core/editor_state.h"
#include "core/extensions.h"
#include "core/file_export.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "core/map_places.h"
#include "core/refusals.h"
#include "core/wording.h"
#include "exchange/map_table.h"
#include "platform/clock.h"

namespace {

std::string inForm(const MapTable& table, const std::string& path) {
  const std::string form = extensionOf(path);
  return form == "SVG" || form == "PNG" ? pictureFile(pictureOf(table), path) : csvText(table);
}

std::string headingOf(int level, const std::string& text) {
  const std::string name = "h" + std::to_string(level);
  return '<' + name + '>' + escaped(text) + "</" + name + ">\n";
}

std::string rowOf(const std::string& name, const std::string& value) {
  return "<tr><th>" + escaped(name) + "</th><td>" + escaped(value) + "</td></tr>\n";
}

std::string overview() {
  std::string text = "<table>";
  text += rowOf(captioned({"車種", "Model"}), editorState.addressMap.typeUnit);
  text += rowOf(captioned({"ROMデータ", "Image"}), editorState.imageTitle + ", " +
                                                       std::to_string(editorState.imageSize) +
                                                       captioned({" バイト", " bytes"}));
  if (editorState.cylinders != 0) {
    text += rowOf(
        captioned({"仕様", "Engine"}),
        std::to_string(editorState.displacement) + " cc, " + std::to_string(editorState.cylinders) +
            captioned({" 気筒, ", " cylinders, "}) + std::to_string(editorState.injectorSize) +
            captioned({" cc 噴射", " cc injectors"}));
  }
  text += rowOf(captioned({"日時", "Written"}), localTime("%Y-%m-%d %H:%M"));
  return text + "</table>\n";
}

std::string parameters() {
  std::string rows;
  for (const ParamKind& kind : paramKinds()) {
    if (!editorState.addressMap.param(kind.id).present()) continue;
    const Label* const unit = kind.unit ? &(form1().*kind.unit) : nullptr;
    rows += rowOf((form1().*kind.label).caption(),
                  (form1().*kind.box).text() + (unit ? " " + unit->caption() : ""));
  }
  if (rows.empty()) return {};
  return headingOf(2, captioned({"単独の値", "Single values"})) + "<table>" + rows + "</table>\n";
}

std::string maps() {
  std::string text;
  for (const MapKind& kind : mapKinds()) {
    if (!entryOf(kind).present()) continue;
    text += headingOf(2, nameOf(kind)) + htmlTable(tableOf(kind, storedBlock(kind)));
  }
  return text;
}

std::string differencesText() {
  if (!referenceImage()) return {};
  const std::string title = captioned({"相違: ", "What differs from "}) + referenceName();
  const std::string list = differences().empty()
                               ? captioned({"相違はありません。", "Nothing differs."})
                               : differenceReport();
  return headingOf(2, title) + "<pre>" + escaped(list) + "</pre>\n";
}

constexpr const char* style =
    "body{font:14px sans-serif;margin:24px;color:#1c2430}"
    "table{border-collapse:collapse;margin:8px 0}"
    "th,td{border:1px solid #808080;padding:2px 6px;text-align:right}"
    "th{background:#eceef2;font-weight:normal}"
    "@media print{h2{break-after:avoid}table{break-inside:avoid}"
    "td{print-color-adjust:exact;-webkit-print-color-adjust:exact}}";

}  // namespace

void exportMap() {
  const MapKind* const kind = mapOfCursor();
  if (!kind) return showRefusal(nothingSelected);
  const FileDialog dialog{std::string("CSV (*.csv)|*.csv|") + pictureFilter,
                          captioned({"マップの書き出し", "Export map"}), editorState.romFolder,
                          exportName() + " " + kind->keyword + ".csv"};
  exportFile("マップの書き出し", dialog, [kind](const std::string& path) {
    return inForm(tableOf(*kind, storedBlock(*kind)), path);
  });
}

void exportReport() {
  const FileDialog dialog{"HTML (*.html)|*.html", captioned({"レポート", "Report"}),
                          editorState.romFolder, exportName() + ".html"};
  exportFile("レポート", dialog, [](const std::string&) { return reportText(); });
}

std::string reportText() {
  const std::string title = editorState.imageTitle + " - ZELKOVA";
  return std::string("<!DOCTYPE html>\n<html lang=\"") + captioned({"ja", "en"}) +
         "\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + escaped(title) + "</title>\n<style>" +
         style + "</style>\n</head>\n<body>\n" + headingOf(1, editorState.imageTitle) + overview() +
         parameters() + maps() + differencesText() + "</body>\n</html>\n";
}
