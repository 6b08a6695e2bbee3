// A desktop without a screen: records every box, prompt, dialog and pointer change, answers from
// queues, and holds a question that nobody expected against the test.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "controls/desktop.h"
#include "controls/print_job.h"

class HeadlessDesktop : public Desktop {
 public:
  // Answers, taken one by one. An empty file or folder answer is Cancel.
  std::deque<BoxAnswer> boxAnswers;
  std::deque<std::string> textAnswers;
  std::deque<std::string> openAnswers;
  std::deque<std::string> saveAnswers;
  std::deque<std::string> folderAnswers;
  // Boxes with OK alone need no answer if this is set.
  bool okBoxesPass = true;
  // Runs while a question stands open, before it is answered.
  std::function<void()> whileAsking;

  // What was shown.
  std::vector<MessageBox> boxes;
  std::vector<TextPrompt> prompts;
  std::vector<FileDialog> openDialogs;
  std::vector<FileDialog> saveDialogs;
  std::vector<std::string> folderTitles;
  std::vector<PrintJob> printJobs;
  std::vector<std::string> sounds;  // "once PATH", "looping PATH", "stop"
  std::vector<std::string> programs;
  std::vector<std::string> addresses;
  std::vector<bool> pointerChanges;
  std::vector<Window*> shownWindows;
  std::vector<MenuItem*> popUps;
  std::vector<std::string> unexpected;  // questions without an answer
  bool busy = false;
  bool ended = false;
  bool programsStart = true;
  bool storeWorks = true;
  std::optional<std::string> clipboard;
  std::string clipboardHtml;  // "": none
  std::string userData;       // the folder of the user's own data; "": none
  std::map<std::string, std::map<std::string, std::string>> store;

  void setClipboardText(const std::string& text) override;
  void setClipboardTable(const std::string& text, const std::string& html) override;
  bool clipboardHasHtml() override { return !clipboardHtml.empty(); }
  std::string pngOf(const Picture&) override { return "png"; }
  std::optional<std::string> clipboardText() override;
  std::string dataFolder() override { return userData; }
  std::string storedValue(const std::string& section, const std::string& key) override;
  bool storeValue(const std::string& section, const std::string& key,
                  const std::string& value) override;
  bool deleteSection(const std::string& section) override;
  std::vector<std::pair<std::string, std::string>> storedSection(
      const std::string& section) override;
  void playSound(const std::string& path, SoundMode mode) override;
  void stopSound() override;
  bool startProgram(const std::string& path) override;
  bool startCalculator() override;
  bool openAddress(const std::string& address) override;
  void setBusyPointer(bool on) override;
  void showWindow(Window& window) override;
  void hideWindow(Window& window) override;
  void bringToFront(Window& window) override;
  void popUpMenu(MenuItem& menu) override;
  void quit() override;

 protected:
  BoxAnswer doShowBox(const MessageBox& box) override;
  std::string doAskText(const TextPrompt& prompt) override;
  std::optional<ChosenFile> doChooseFileToOpen(const FileDialog& dialog) override;
  std::optional<ChosenFile> doChooseFileToSave(const FileDialog& dialog) override;
  std::string doChooseFolder(const std::string& title) override;
  void doShowPages(const PrintJob& job) override { printJobs.push_back(job); }

 private:
  std::optional<ChosenFile> chosen(std::deque<std::string>& answers, const std::string& title);
  std::string nextText(std::deque<std::string>& answers, const std::string& question);
};
