// Files for others: a map in the form that its file's name tells, and the report.

#include "exchange/export_files.h"

#include <map>
#include <regex>

#include "exchange/print_dialog.h"
#include "exchange/print_pages.h"
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
  form.Grid1.setText(2, 2, "1,\"5\"");
  exportAs("map.csv");
  EXPECT_TRUE(holds(readText("map.csv"), "255,\"1,\"\"5\"\"\","));
  EXPECT_TRUE(readText("map.csv").starts_with(",5," + form.TP_FUEL.text(1, 2)));
  EXPECT_TRUE(holds(readText("map.csv"), "\r\n650,1,2,"));
  EXPECT_EQ(desk.saveDialogs.back().fileName, "image HIGH_FUEL.csv");
  exportAs("map.SVG");
  const std::string svg = readText("map.SVG");
  EXPECT_TRUE(svg.starts_with("<?xml") && svg.ends_with("</svg>\n"));
  EXPECT_TRUE(holds(svg, "fill=\"#C8000F\"") && holds(svg, ">650</text>") &&
              holds(svg, ">caption</text>"));
  form.Grid1.setCell(1, 1, "1", rgb(255, 0, 0));
  form.Grid1.setCell(1, 2, "2", rgb(0, 0, 255));
  pick("map_colours");
  exportAs("bright.svg");
  for (const char* part :
       {"#042C6F", "#FEED6B", "fill=\"#FFFFFF\" text", "fill=\"#000000\" text"}) {
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
  EXPECT_TRUE(holds(told(), "*ERROR = [76] There is no such folder.\n"));
  EXPECT_EQ(form.Label13.caption(), "");
}

TEST_F(ExportFiles, TheReportHoldsAllThatTheImageHoldsAndWhatDiffers) {
  useMap("TYPE_UNIT,<CAR> & co\001\nTP_SCALE_FUEL,&H240,8,1,8,0,tp\n" +
         mapBlock("HIGH_FUEL", "&H100", columns, rows, 48, "1", "fuel <1>") +
         mapBlock("ADD_MAP3", "&H200", 2, 2, 4, "3", "third") + "REV1_LIMIT,&H20,1,1,2,12.5,rev\n");
  form.Grid1.setText(1, 1, "x<y");
  form.TP_FUEL.setText(1, 1, "123");
  enterCell(form.AddGrid3, 2, 2, "9");
  exportAs("all.html");
  const std::string report = readText("all.html");
  for (const char* part :
       {"<!DOCTYPE html>", "<td>&lt;CAR&gt; &amp; co </td>", "<tr><th>123</th>",
        "<h2>fuel &lt;1&gt;</h2>", "<h2>third</h2>", "rev</th><td>", "RPM</td>", "x&lt;y</td>",
        "image.bin, 4096 bytes", "What differs from the file", "&amp;H0203: "}) {
    EXPECT_TRUE(holds(report, part)) << part;
  }
  for (const char* part : {"http", "src=", "<CAR>", "x<y"})
    EXPECT_FALSE(holds(report, part)) << part;
  const auto count = [&report](const char* part) {
    const std::regex each(part);
    return std::distance(std::sregex_iterator(report.begin(), report.end(), each), {});
  };
  EXPECT_EQ(count("<tr><th>[^<]+</th><td>"), 5) << "model, image, engine, date and the one limit";
  EXPECT_EQ(count("<h2>"), 5) << "the limit, three maps, what differs";
  pick("against_nothing");
  exportAs("all2.html");
  EXPECT_FALSE(holds(readText("all2.html"), "What differs"));
}

class Printing : public ExportFiles {
 protected:
  // The pages after these buttons, each as its texts.
  std::vector<std::string> printed(std::initializer_list<Button*> buttons, PaperArea area = sheet) {
    pick("print");
    for (Button* button : buttons) button->userClick();
    printDialog.preview.userClick();
    return textsOf(desk.printJobs.back().pages(area));
  }
  static std::vector<std::string> textsOf(const std::vector<Picture>& pages) {
    std::vector<std::string> all;
    for (const Picture& page : pages) {
      std::string& texts = all.emplace_back("|");
      for (const PictureBox& box : page.boxes) texts += box.text + '|';
    }
    return all;
  }
  static MapTable numbered(int high, int wide) {
    MapTable table{"wide", {}};
    for (int r = 0; r <= high; ++r) {
      TableRow& row = table.rows.emplace_back();
      for (int c = 0; c <= wide; ++c) {
        const std::string place = std::to_string(r) + '.' + std::to_string(c);
        row.push_back({place, r == 0 || c == 0});
      }
    }
    return table;
  }
  static constexpr PaperArea sheet{510, 774};
};

TEST_F(Printing, EachChosenMapIsAPageThatTellsWhatItIs) {
  form.TP_FUEL.setText(1, 1, "77");
  enterCell(form.Grid1, 6, 8, "99");
  const auto one = printed({});
  ASSERT_EQ(one.size(), 1U);
  for (const char* text : {"|caption|", "|CAR|", "|image.bin|", "|1 / 1|", "|77|", "|99|"}) {
    EXPECT_TRUE(holds(one[0], text)) << text;
  }
  EXPECT_TRUE(desk.printJobs.back().landscape == false && form.enabled());
  EXPECT_EQ(printed({&printDialog.allMaps}).size(), 13U) << "scales are no pages";
  EXPECT_TRUE(holds(printed({&printDialog.allMaps}).back(), "|13 / 13|"));
  selectTab(airflowTab);
  EXPECT_TRUE(holds(printed({})[0], '|' + tabGrid(airflowTab).text(1, 16) + '|'));
  EXPECT_TRUE(desk.printJobs.back().landscape);
  pick("print");
  printDialog.noMap.userClick();
  printDialog.preview.userClick();
  EXPECT_EQ(told(), "No map is chosen.");
  printDialog.cancel.userClick();
  desk.saveAnswers = {path("map.pdf")};
  desk.printJobs.back().save([] { return "%PDF"; });
  EXPECT_EQ(readText("map.pdf"), "%PDF");
  EXPECT_EQ(desk.saveDialogs.back().fileName, "image.pdf");
}

TEST_F(Printing, APageFillsItsPaperAndNothingStandsOutsideIt) {
  struct Case {
    int high, wide;
    std::size_t pages;
    double leastFont;  // points
  };
  for (const auto& [high, wide, pages, leastFont] :
       {Case{2, 3, 1, 12}, {17, 18, 1, 6}, {1, 41, 1, 8}, {100, 60, 8, 5}}) {
    const MapTable table = numbered(high, wide);
    const std::vector<Picture> all = pagesOf({table}, {"car", "image", "date"}, sheet);
    EXPECT_EQ(all.size(), pages) << high << 'x' << wide;
    std::map<std::string, int> texts;
    for (const Picture& page : all) {
      const double scale = double{sheet.width} / page.width;
      EXPECT_NEAR(page.height * scale, sheet.height, 1);
      for (const PictureBox& box : page.boxes) {
        if (!box.border) continue;
        ++texts[box.text];
        EXPECT_TRUE(box.x >= 0 && box.x + box.width <= page.width);
        EXPECT_TRUE(box.y * scale > 30 && (box.y + box.height) * scale < sheet.height - 16);
        EXPECT_GE(box.fontPixels * scale, leastFont - 0.01);
      }
    }
    for (int c = 1; c <= wide; ++c) {
      EXPECT_GE(texts["0." + std::to_string(c)], 1) << "the scale";
      for (int r = 1; r <= high; ++r) {
        const std::string cell = std::to_string(r) + '.' + std::to_string(c);
        EXPECT_EQ(texts[cell], 1) << cell;
      }
    }
  }
}

}  // namespace
