// The program's surroundings as the toolkit gives them.
#pragma once

#include <QHash>
#include <QPointer>
#include <QString>

#include "controls/desktop.h"

class QWidget;

class QtDesktop : public Desktop {
 public:
  QtDesktop() = default;
  ~QtDesktop() override;
  QtDesktop(const QtDesktop&) = delete;
  QtDesktop& operator=(const QtDesktop&) = delete;

  // Makes the widget of a window that is shown later.
  void prepareWindow(Window& window);
  // True after `quit`, also when it came before the event loop.
  bool over() const { return over_; }
  // The window's widget, made at the first look at it.
  QWidget* widgetOf(Window& window);

  void setClipboardText(const std::string& text) override;
  void setClipboardTable(const std::string& text, const std::string& html) override;
  bool clipboardHasHtml() override;
  std::string pngOf(const Picture& picture) override;
  std::optional<std::string> clipboardText() override;

  // The user's own folder counts only after `keepUserData`.
  std::string dataFolder() override { return dataFolder_; }
  void keepUserData();
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
  void doShowPages(const PrintJob& job) override;

 private:
  // A window once made is kept, and shown again at its next opening.
  QHash<const Window*, QPointer<QWidget>> windows_;
  std::string dataFolder_;
  bool busy_ = false;
  bool over_ = false;
};
