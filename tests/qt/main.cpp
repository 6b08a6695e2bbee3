// The tests of the real windows run without a screen.
#include <gtest/gtest.h>

#include <QApplication>

#include "frontend/qt/look.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  dressApplication();
  return RUN_ALL_TESTS();
}
