// The tests of the real windows run without a screen, as if they had one of 1920 x 1080 pixels.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFileInfo>
#include <QTemporaryFile>

#include "frontend/qt/look.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QTemporaryFile screen("screenXXXXXX");
  if (!screen.open()) return 1;
  screen.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1080,
                                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  screen.close();
  qputenv("QT_QPA_PLATFORM",
          "offscreen:configfile=" + QFileInfo(screen.fileName()).fileName().toUtf8());
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication application(argc, argv);
  dressApplication();
  return RUN_ALL_TESTS();
}
