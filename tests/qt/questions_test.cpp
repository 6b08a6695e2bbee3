// What the desktop asks in real windows, answered by a user's clicks and keys; the store.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>

#include "core/editor_state.h"
#include "frontend/qt/qt_desktop.h"
#include "platform/failure.h"

namespace {

struct QuestionsTest : testing::Test {
  QuestionsTest() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    useDesktop(&desk);
    editorState.english = 1;
  }
  ~QuestionsTest() override {
    useDesktop(nullptr);
    editorState.english = 0;
  }
  // Runs `answer` on the question once it stands open.
  template <class Question>
  void whenAsked(std::function<void(Question*)> answer) {
    QTimer::singleShot(0, &context, [this, answer] {
      auto* const question = qobject_cast<Question*>(QApplication::activeModalWidget());
      if (!question) return whenAsked<Question>(answer);
      answer(question);
    });
  }

  QTemporaryDir folder;
  QObject context;
  QtDesktop desk;
};

TEST_F(QuestionsTest, ABoxAnswersWithItsButton) {
  struct {
    BoxButtons buttons;
    int press;  // the button's place, -1 the close box
    BoxAnswer expected;
  } const cases[] = {
      {BoxButtons::ok, 0, BoxAnswer::ok},           {BoxButtons::ok, -1, BoxAnswer::ok},
      {BoxButtons::yesNo, 0, BoxAnswer::yes},       {BoxButtons::yesNo, 1, BoxAnswer::no},
      {BoxButtons::yesNo, -1, BoxAnswer::no},       {BoxButtons::okCancel, 0, BoxAnswer::ok},
      {BoxButtons::okCancel, 1, BoxAnswer::cancel}, {BoxButtons::okCancel, -1, BoxAnswer::cancel},
  };
  for (const auto& each : cases) {
    whenAsked<QMessageBox>([&each](QMessageBox* box) {
      if (each.press < 0) return QTest::keyClick(box, Qt::Key_Escape);
      const auto wanted = each.buttons == BoxButtons::yesNo
                              ? std::pair(QMessageBox::Yes, QMessageBox::No)
                              : std::pair(QMessageBox::Ok, QMessageBox::Cancel);
      box->button(each.press == 0 ? wanted.first : wanted.second)->click();
    });
    EXPECT_EQ(desk.showBox({BoxIcon::question, each.buttons, "title", "text"}), each.expected)
        << each.press;
  }
}

TEST_F(QuestionsTest, ABoxShowsItsTextAsItIsInTheLanguageInForce) {
  editorState.english = 0;
  whenAsked<QMessageBox>([](QMessageBox* box) {
    EXPECT_EQ(box->text(), "a <b> & \"c\"");
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(box->windowTitle(), "title");
    EXPECT_EQ(box->icon(), QMessageBox::Critical);
    EXPECT_EQ(box->button(QMessageBox::Yes)->text(), QString::fromUtf8("はい"));
    box->button(QMessageBox::Yes)->click();
  });
  desk.showBox({BoxIcon::critical, BoxButtons::yesNo, "title", "a <b> & \"c\""});
}

TEST_F(QuestionsTest, APromptOffersItsAnswerSelectedAndCancelGivesNothing) {
  const TextPrompt prompt{"Data change", "Data?\n\n0 - 255", "12"};
  whenAsked<QDialog>([](QDialog* dialog) {
    auto* const entry = dialog->findChild<QLineEdit*>();
    EXPECT_EQ(entry->selectedText(), "12");
    QTest::keyClicks(entry, "34");
    QTest::keyClick(entry, Qt::Key_Return);
  });
  EXPECT_EQ(desk.askText(prompt), "34");
  whenAsked<QDialog>([](QDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
  EXPECT_EQ(desk.askText(prompt), "");
}

TEST_F(QuestionsTest, ASaveDialogProposesItsNameAndAddsTheEnding) {
  whenAsked<QFileDialog>([](QFileDialog* dialog) {
    EXPECT_EQ(dialog->nameFilters(), QStringList{QStringLiteral("Bin Image (*.bin)")});
    EXPECT_TRUE(dialog->testOption(QFileDialog::DontConfirmOverwrite));
    auto* const entry = dialog->findChild<QLineEdit*>();
    EXPECT_EQ(entry->text(), "old.bin");
    entry->setText(QString::fromUtf8("新しい"));
    QTest::keyClick(entry, Qt::Key_Return);
  });
  const ChosenFile chosen = desk.chooseFileToSave(
      {"Bin Image (*.bin)|*.bin", "Save", folder.path().toStdString(), "old.bin"});
  EXPECT_EQ(chosen.title, "新しい.bin");
  EXPECT_EQ(chosen.path, folder.path().toStdString() + "/新しい.bin");
}

TEST_F(QuestionsTest, ACancelledFileDialogFailsAndAFolderIsEmpty) {
  const auto escape = [](QFileDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); };
  whenAsked<QFileDialog>(escape);
  EXPECT_THROW(desk.chooseFileToOpen({"A (*.a)|*.a", "Load", "", ""}), Failure);
  whenAsked<QFileDialog>(escape);
  EXPECT_EQ(desk.chooseFolder("Folder"), "");
}

TEST_F(QuestionsTest, TheStoreKeepsItsRowsInTheKeysOrder) {
  for (const char* key : {"RecentFile2", "RecentFile1", "RecentFile3"}) {
    EXPECT_TRUE(desk.storeValue("Recent", key, std::string("/tmp/燃料 ") + key));
  }
  desk.storeValue("Other", "key", "kept");
  const auto rows = desk.storedSection("Recent");
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].first, "RecentFile1");
  EXPECT_EQ(rows[2].second, "/tmp/燃料 RecentFile3");
  EXPECT_EQ(desk.storedValue("Recent", "missing"), "");
  EXPECT_TRUE(desk.deleteSection("Recent"));
  EXPECT_TRUE(desk.storedSection("Recent").empty());
  EXPECT_EQ(desk.storedValue("Other", "key"), "kept");
}

}  // namespace
