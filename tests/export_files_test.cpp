// Files for others: a map in the form that its file's name tells, and the report.

#include "exchange/export_files.h"

#include "map_tools_bed.h"

namespace {

class ExportFiles : public LoadedCarTest {
 protected:
  void exportAs(const std::string& name) {
    desk.saveAnswers = {name.empty() ? "" : path(name)};
    pick(name.ends_with("html") ? "report" : "export_map");
  }
  static bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }
  Form1& form = form1();
};

TEST_F(ExportFiles, AMapIsWrittenInTheFormOfItsName) {
  fill(form.Grid1, {{1, 2}, {255, 4}});
  form.Grid1.setCell(1, 1, "1", rgb(200, 0, 15));
  form.TP_FUEL.setText(1, 1, "5");
  form.RPM_FUEL.setText(0, 0, "650");
  exportAs("map.csv");
  EXPECT_TRUE(readText("map.csv").starts_with(",5," + form.TP_FUEL.text(1, 2)));
  EXPECT_TRUE(holds(readText("map.csv"), "\r\n650,1,2,"));
  EXPECT_EQ(desk.saveDialogs.back().fileName, "image HIGH_FUEL.csv");
  exportAs("map.SVG");
  const std::string svg = readText("map.SVG");
  EXPECT_TRUE(svg.starts_with("<?xml") && svg.ends_with("</svg>\n"));
  EXPECT_TRUE(holds(svg, "fill=\"#c8000f\"") && holds(svg, ">650</text>") &&
              holds(svg, ">caption</text>"));
  form.Grid1.setCell(1, 1, "1", rgb(255, 0, 0));
  form.Grid1.setCell(1, 2, "2", rgb(0, 0, 255));
  pick("map_colours");
  exportAs("bright.svg");
  for (const char* part :
       {"#042c6f", "#feed6b", "fill=\"#ffffff\" text", "fill=\"#000000\" text"}) {
    EXPECT_TRUE(holds(readText("bright.svg"), part)) << part << " in the colours on the screen";
  }
  pick("map_colours");
  exportAs("map.png");
  EXPECT_EQ(readText("map.png"), "png");
  form.TP_FUEL.userFocus();
  exportAs("scale.csv");
  EXPECT_TRUE(readText("scale.csv").starts_with("5,")) << "a scale without its boost line";
  form.Grid1.userFocus();
  selectTab(airflowTab);
  exportAs("air.csv");
  const std::string air = readText("air.csv");
  EXPECT_TRUE(air.starts_with(tabGrid(airflowTab).text(1, 1) + ","));
  EXPECT_EQ(std::count(air.begin(), air.end(), ','), 15);
}

TEST_F(ExportFiles, WhatStandsThereIsKeptWhereTheUserOrTheDiskSaysNo) {
  writeText("map.csv", "old");
  desk.boxAnswers = {BoxAnswer::cancel};
  exportAs("map.csv");
  exportAs("");
  EXPECT_EQ(readText("map.csv"), "old");
  EXPECT_TRUE(told().starts_with("map.csv\r\n"));
  desk.boxAnswers = {BoxAnswer::ok};
  exportAs("map.csv");
  EXPECT_TRUE(holds(readText("map.csv"), ","));
  told();
  exportAs("missing/map.csv");
  EXPECT_TRUE(holds(told(), "*ERROR = [76]"));
  EXPECT_EQ(form.Label13.caption(), "");
}

TEST_F(ExportFiles, TheReportHoldsAllThatTheImageHoldsAndWhatDiffers) {
  useMap("TYPE_UNIT,<CAR> & co\n" +
         mapBlock("HIGH_FUEL", "&H100", columns, rows, 48, "1", "fuel <1>") +
         mapBlock("ADD_MAP3", "&H200", 2, 2, 4, "3", "third") + "REV1_LIMIT,&H20,1,1,2,12.5,rev\n");
  form.Grid1.setText(1, 1, "x<y");
  enterCell(form.AddGrid3, 2, 2, "9");
  exportAs("all.html");
  const std::string report = readText("all.html");
  for (const char* part :
       {"<!DOCTYPE html>", "<td>&lt;CAR&gt; &amp; co</td>", "<h2>fuel &lt;1&gt;</h2>",
        "<h2>third</h2>", "rev</th><td>", "RPM</td>", "x&lt;y</td>", "image.bin, 4096 bytes",
        "What differs from the file", "&amp;H0203: "}) {
    EXPECT_TRUE(holds(report, part)) << part;
  }
  for (const char* part : {"http", "src=", "<CAR>", "x<y"})
    EXPECT_FALSE(holds(report, part)) << part;
  pick("against_nothing");
  exportAs("all2.html");
  EXPECT_FALSE(holds(readText("all2.html"), "What differs"));
}

}  // namespace
