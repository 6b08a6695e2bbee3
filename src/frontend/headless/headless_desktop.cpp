#include "frontend/headless/headless_desktop.h"

#include "controls/window.h"
#include "platform/files.h"

void HeadlessDesktop::setClipboardText(const std::string& text) {
  clipboard = text;
  clipboardHtml.clear();
}

void HeadlessDesktop::setClipboardTable(const std::string& text, const std::string& html) {
  clipboard = text;
  clipboardHtml = html;
}

std::optional<std::string> HeadlessDesktop::clipboardText() { return clipboard; }

std::string HeadlessDesktop::storedValue(const std::string& section, const std::string& key) {
  return store[section][key];
}

bool HeadlessDesktop::storeValue(const std::string& section, const std::string& key,
                                 const std::string& value) {
  if (storeWorks) store[section][key] = value;
  return storeWorks;
}

bool HeadlessDesktop::deleteSection(const std::string& section) {
  return storeWorks && store.erase(section) > 0;
}

std::vector<std::pair<std::string, std::string>> HeadlessDesktop::storedSection(
    const std::string& section) {
  std::vector<std::pair<std::string, std::string>> rows;
  for (const auto& [key, value] : store[section]) {
    if (!value.empty()) rows.emplace_back(key, value);
  }
  return rows;
}

void HeadlessDesktop::playSound(const std::string& path, SoundMode mode) {
  sounds.push_back((mode == SoundMode::looping ? "looping " : "once ") + path);
}

void HeadlessDesktop::stopSound() { sounds.push_back("stop"); }

bool HeadlessDesktop::startProgram(const std::string& path) {
  programs.push_back(path);
  return programsStart;
}

bool HeadlessDesktop::startCalculator() {
  programs.push_back("calculator");
  return programsStart;
}

bool HeadlessDesktop::openAddress(const std::string& address) {
  addresses.push_back(address);
  return programsStart;
}

void HeadlessDesktop::setBusyPointer(bool on) {
  if (busy != on) pointerChanges.push_back(on);
  busy = on;
}

void HeadlessDesktop::showWindow(Window& window) {
  shownWindows.push_back(&window);
  window.userActivate();
}

void HeadlessDesktop::hideWindow(Window& window) { std::erase(shownWindows, &window); }

void HeadlessDesktop::bringToFront(Window& window) { window.userActivate(); }

void HeadlessDesktop::popUpMenu(MenuItem& menu) { popUps.push_back(&menu); }

void HeadlessDesktop::quit() { ended = true; }

BoxAnswer HeadlessDesktop::doShowBox(const MessageBox& box) {
  boxes.push_back(box);
  if (whileAsking) whileAsking();
  if (box.buttons == BoxButtons::ok && okBoxesPass) return BoxAnswer::ok;
  if (boxAnswers.empty()) {
    unexpected.push_back(box.title + ": " + box.text);
    return box.buttons == BoxButtons::yesNo ? BoxAnswer::no : BoxAnswer::cancel;
  }
  const BoxAnswer answer = boxAnswers.front();
  boxAnswers.pop_front();
  return answer;
}

std::string HeadlessDesktop::nextText(std::deque<std::string>& answers,
                                      const std::string& question) {
  if (whileAsking) whileAsking();
  if (answers.empty()) {
    unexpected.push_back(question);
    return {};
  }
  std::string answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

std::string HeadlessDesktop::doAskText(const TextPrompt& prompt) {
  prompts.push_back(prompt);
  return nextText(textAnswers, prompt.title + ": " + prompt.text);
}

std::optional<ChosenFile> HeadlessDesktop::chosen(std::deque<std::string>& answers,
                                                  const std::string& title) {
  const std::string path = nextText(answers, title);
  if (path.empty()) return std::nullopt;
  return ChosenFile{path, fileNameOf(path)};
}

std::optional<ChosenFile> HeadlessDesktop::doChooseFileToOpen(const FileDialog& dialog) {
  openDialogs.push_back(dialog);
  return chosen(openAnswers, dialog.title);
}

std::optional<ChosenFile> HeadlessDesktop::doChooseFileToSave(const FileDialog& dialog) {
  saveDialogs.push_back(dialog);
  return chosen(saveAnswers, dialog.title);
}

std::string HeadlessDesktop::doChooseFolder(const std::string& title) {
  folderTitles.push_back(title);
  return nextText(folderAnswers, title);
}
