// What the program asks of its surroundings: message boxes, text prompt, file dialogs, folder
// chooser, printing, clipboard, per-user settings store, sound, other programs, addresses, busy
// pointer, and showing and hiding of windows. A front end provides one implementation; the logic
// sees only this.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

class MenuItem;
struct Picture;
struct PrintJob;
class Window;

enum class BoxIcon { none, information, question, critical };
enum class BoxButtons { ok, okCancel, yesNo };
enum class BoxAnswer { ok, cancel, yes, no };

struct MessageBox {
  BoxIcon icon = BoxIcon::none;
  BoxButtons buttons = BoxButtons::ok;
  std::string title;
  std::string text;
  std::string name =
      {};  // a file's name within the text, of which a long one need not be shown whole
};

struct TextPrompt {
  std::string title;
  std::string text;
  std::string answer;  // what stands in the entry at first
};

struct FileDialog {
  std::string filter;  // "Bin Image (*.bin)|*.bin": what the user sees, a bar, the pattern
  std::string title;
  std::string folder;
  std::string fileName;  // the proposed name, bare or with its folder
};

struct ChosenFile {
  std::string path;
  std::string title;  // the bare file name
};

enum class SoundMode { once, looping };

class Desktop {
 public:
  virtual ~Desktop() = default;

  // The close box of a message box answers cancel, no, or ok where there is no other button.
  BoxAnswer showBox(const MessageBox& box);
  // An empty text when the user cancels.
  std::string askText(const TextPrompt& prompt);
  // Both fail with `cancelled` when the user cancels. Neither asks about an existing file.
  ChosenFile chooseFileToOpen(const FileDialog& dialog);
  ChosenFile chooseFileToSave(const FileDialog& dialog);
  // An empty path when the user cancels.
  std::string chooseFolder(const std::string& title);
  // Shows the pages of a document, from where they are printed or saved as PDF.
  void showPages(const PrintJob& job);
  // True while one of the six above stands open: no window takes input then.
  bool asking() const { return asking_ > 0; }

  virtual void setClipboardText(const std::string& text) = 0;
  // The same table as tab-separated text and as HTML at once.
  virtual void setClipboardTable(const std::string& text, const std::string& html) = 0;
  // Whether the clipboard holds HTML beside its text, as spreadsheets put it there.
  virtual bool clipboardHasHtml() = 0;
  // The bytes of a PNG file of the picture.
  virtual std::string pngOf(const Picture& picture) = 0;
  // Nothing when the clipboard holds no text.
  virtual std::optional<std::string> clipboardText() = 0;

  // The folder of this user's own data, which need not be there yet; "" where there is none and
  // nothing may be written.
  virtual std::string dataFolder() = 0;

  // The per-user store, by section and key. Reading a missing key gives "". Writing gives false
  // when the store can't be written, deleting a section also when there is none. Enumerating gives
  // rows of key and value in the keys' order.
  virtual std::string storedValue(const std::string& section, const std::string& key) = 0;
  virtual bool storeValue(const std::string& section, const std::string& key,
                          const std::string& value) = 0;
  virtual bool deleteSection(const std::string& section) = 0;
  virtual std::vector<std::pair<std::string, std::string>> storedSection(
      const std::string& section) = 0;

  // Sounds play in the background; a sound that can't be played is passed over in silence.
  virtual void playSound(const std::string& path, SoundMode mode) = 0;
  virtual void stopSound() = 0;
  // Starts a program, or the desktop's own calculator, without waiting for it; false if it can't.
  virtual bool startProgram(const std::string& path) = 0;
  virtual bool startCalculator() = 0;
  virtual bool openAddress(const std::string& address) = 0;

  virtual void setBusyPointer(bool on) = 0;
  virtual void showWindow(Window& window) = 0;
  virtual void hideWindow(Window& window) = 0;
  virtual void bringToFront(Window& window) = 0;
  // Opens `menu` at the pointer.
  virtual void popUpMenu(MenuItem& menu) = 0;
  // The program is over.
  virtual void quit() = 0;

 protected:
  virtual BoxAnswer doShowBox(const MessageBox& box) = 0;
  virtual std::string doAskText(const TextPrompt& prompt) = 0;
  virtual std::optional<ChosenFile> doChooseFileToOpen(const FileDialog& dialog) = 0;
  virtual std::optional<ChosenFile> doChooseFileToSave(const FileDialog& dialog) = 0;
  virtual std::string doChooseFolder(const std::string& title) = 0;
  virtual void doShowPages(const PrintJob& job) = 0;

 private:
  int asking_ = 0;
};

// The desktop in force. `useDesktop` sets it; null takes it away.
Desktop& desktop();
bool hasDesktop();
void useDesktop(Desktop* desktop);
