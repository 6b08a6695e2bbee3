// What the desktop asks in real windows, answered by a user's clicks and keys; the store.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "controls/canvas_picture.h"
#include "core/editor_state.h"
#include "frontend/qt/picture_painting.h"
#include "frontend/qt/qt_desktop.h"
#include "platform/failure.h"

namespace {

struct QuestionsTest : testing::Test {
  QuestionsTest() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    useDesktop(&desk);
    editorState.english = 0;
  }
  ~QuestionsTest() override { useDesktop(nullptr); }
  // Runs `answer` on the question once it stands open.
  template <class Question>
  void whenAsked(std::function<void(Question*)> answer) {
    QTimer::singleShot(0, &context, [this, answer] {
      auto* const question = qobject_cast<Question*>(QApplication::activeModalWidget());
      if (!question) return whenAsked<Question>(answer);
      answer(question);
    });
  }
  static void escape(QWidget* question) { QTest::keyClick(question, Qt::Key_Escape); }

  QTemporaryDir folder;
  QObject context;
  QtDesktop desk;
};

TEST_F(QuestionsTest, ABoxShowsItsTextAsItIsAndAnswersWithItsButton) {
  using Box = QMessageBox;
  using B = BoxButtons;
  using A = BoxAnswer;
  // NoButton stands for the close box.
  const std::tuple<B, Box::StandardButton, A> cases[] = {
      {B::ok, Box::Ok, A::ok},       {B::ok, Box::NoButton, A::ok},
      {B::yesNo, Box::Yes, A::yes},  {B::yesNo, Box::NoButton, A::no},
      {B::yesNo, Box::No, A::no},    {B::okCancel, Box::Cancel, A::cancel},
      {B::okCancel, Box::Ok, A::ok}, {B::okCancel, Box::NoButton, A::cancel}};
  for (const auto& [buttons, press, expected] : cases) {
    whenAsked<Box>([wanted = press](Box* box) {
      EXPECT_EQ(box->windowTitle() + box->text(), "titlea <b> & \"c\"");
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      EXPECT_EQ(box->icon(), Box::Critical);
      for (const auto safe : {Box::Cancel, Box::No}) {
        EXPECT_TRUE(!box->button(safe) || box->button(safe) == box->defaultButton());
      }
      if (wanted == Box::NoButton) return escape(box);
      EXPECT_TRUE(wanted != Box::Yes || box->button(wanted)->text() == "はい(&Y)");
      box->button(wanted)->click();
    });
    EXPECT_EQ(desk.showBox({BoxIcon::critical, buttons, "title", "a <b> & \"c\""}), expected);
  }
}

TEST_F(QuestionsTest, ALongNameIsShortenedInTheMiddleSoThatTheQuestionStaysInSight) {
  const std::string name = "first " + std::string(255, 'x') + " last.bin";
  whenAsked<QMessageBox>([](QMessageBox* box) {
    EXPECT_TRUE(box->text().startsWith("first xx") && box->text().endsWith("x last.bin\r\nsure?"));
    EXPECT_LT(box->width(), 800);
    escape(box);
  });
  desk.showBox({BoxIcon::question, BoxButtons::okCancel, "t", name + "\r\nsure?", name});
}

TEST_F(QuestionsTest, AFileDialogProposesItsNameAddsTheEndingAndFailsWhenCancelled) {
  const std::string where = folder.path().toStdString();
  whenAsked<QFileDialog>([](QFileDialog* dialog) {
    EXPECT_TRUE(dialog->testOption(QFileDialog::DontConfirmOverwrite));
    auto* const entry = dialog->findChild<QLineEdit*>();
    EXPECT_EQ(entry->text(), "old.bin");
    entry->setText("新しい");
    QTest::keyClick(entry, Qt::Key_Return);
  });
  const ChosenFile chosen =
      desk.chooseFileToSave({"Bin Image (*.bin)|*.bin", "Save", where, "old.bin"});
  const auto native = [](const std::string& path) {
    return QDir::toNativeSeparators(QString::fromStdString(path)).toStdString();
  };
  EXPECT_EQ(chosen.title + chosen.path, "新しい.bin" + native(where + "/新しい.bin"));
  const std::string elsewhere = native(QDir::homePath().toStdString() + "/new.bin");
  whenAsked<QFileDialog>([where, elsewhere](QFileDialog* dialog) {
    EXPECT_EQ(dialog->directory().path().toStdString(), where);
    EXPECT_EQ(dialog->findChild<QLineEdit*>()->text().toStdString(), elsewhere);
    escape(dialog);
  });
  EXPECT_THROW(desk.chooseFileToSave({"A (*.bin)|*.bin", "Save", where, elsewhere}), Failure);
}

TEST_F(QuestionsTest, TheStoreKeepsItsRowsInTheKeysOrder) {
  for (const char* key : {"File2", "File1", "File3"}) {
    EXPECT_TRUE(desk.storeValue("Recent", key, std::string("/tmp/燃料 ") + key));
  }
  desk.storeValue("Other", "key", "kept");
  std::string rows;
  for (const auto& [key, value] : desk.storedSection("Recent")) rows += key + value + ' ';
  EXPECT_EQ(rows, "File1/tmp/燃料 File1 File2/tmp/燃料 File2 File3/tmp/燃料 File3 ");
  EXPECT_TRUE(desk.deleteSection("Recent"));
  EXPECT_TRUE(desk.storedSection("Recent").empty());
  EXPECT_FALSE(desk.deleteSection("Recent")) << "there is none any more";
  EXPECT_EQ(desk.storedValue("Other", "key") + desk.storedValue("Recent", "File1"), "kept");
}

TEST_F(QuestionsTest, PagesBecomeAPdfFileForTheirPaper) {
  PaperArea asked;
  const PrintJob job{"title",
                     false,
                     [&asked](const PaperArea& area) {
                       asked = area;
                       return std::vector<Picture>(3, Picture{area.width, area.height});
                     },
                     {}};
  const QPageLayout layout(QPageSize(QPageSize::Letter), QPageLayout::Landscape, {36, 36, 36, 36});
  const std::string pdf = pdfBytes(job, layout);
  EXPECT_TRUE(asked.width == 720 && asked.height == 540) << "points within the margins";
  EXPECT_TRUE(pdf.starts_with("%PDF") && pdf.find("/Count 3") != std::string::npos);
  EXPECT_NE(pdf.find("/MediaBox [0 0 792.000000 612.000000]"), std::string::npos);
}

TEST_F(QuestionsTest, APictureIsTwiceAsLargeAsPngWithAllThatLiesOnIt) {
  Window window("window");
  Canvas canvas(window, 60, 40);
  Label label(window, "label");
  const Line line(window, {10, 30, 50, 30, 2}, rgb(255, 0, 0));
  label.setColour(rgb(0, 0, 255));
  canvas.drawLine(5, 35, 20, 35, rgb(0, 255, 0));
  canvas.drawBar(-9, 0, 1, 1, rgb(255, 255, 0));
  const PlacedLabel placed{&label, 4, 4};
  const Line* const lines[] = {&line};
  const std::string png = pngBytes(canvasPicture(canvas, {&placed, 1}, lines));
  const QImage image = QImage::fromData(QByteArray::fromStdString(png));
  EXPECT_EQ(image.size(), QSize(120, 80));
  EXPECT_EQ(image.pixelColor(20, 70), QColor(0, 255, 0));
  EXPECT_EQ(image.pixelColor(60, 60), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(0, 0), QColor(255, 255, 0));
  int blue = 0;
  for (int x = 8; x < 60; ++x) {
    for (int y = 8; y < 36; ++y) blue += image.pixelColor(x, y).blue() > 200;
  }
  EXPECT_GT(blue, 20) << "the label";
}

}  // namespace
