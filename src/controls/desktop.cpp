#include "controls/desktop.h"

#include "platform/failure.h"

namespace {

Desktop* inForce = nullptr;

class Counted {
 public:
  explicit Counted(int& counter) : counter_(counter) { ++counter_; }
  ~Counted() { --counter_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& counter_;
};

ChosenFile chosenOrCancelled(std::optional<ChosenFile> chosen) {
  if (!chosen) throw Failure(cancelled);
  return *std::move(chosen);
}

}  // namespace

Desktop& desktop() { return *inForce; }

bool hasDesktop() { return inForce != nullptr; }

void useDesktop(Desktop* desktop) { inForce = desktop; }

BoxAnswer Desktop::showBox(const MessageBox& box) {
  const Counted open(asking_);
  return doShowBox(box);
}

std::string Desktop::askText(const TextPrompt& prompt) {
  const Counted open(asking_);
  return doAskText(prompt);
}

ChosenFile Desktop::chooseFileToOpen(const FileDialog& dialog) {
  const Counted open(asking_);
  return chosenOrCancelled(doChooseFileToOpen(dialog));
}

ChosenFile Desktop::chooseFileToSave(const FileDialog& dialog) {
  const Counted open(asking_);
  return chosenOrCancelled(doChooseFileToSave(dialog));
}

std::string Desktop::chooseFolder(const std::string& title) {
  const Counted open(asking_);
  return doChooseFolder(title);
}

void Desktop::showPages(const PrintJob& job) {
  const Counted open(asking_);
  doShowPages(job);
}
