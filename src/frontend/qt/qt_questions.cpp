// What the desktop asks the user: message boxes, text prompt, file dialogs, folder chooser, and the
// pages before they are printed.
#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QSpacerItem>
#include <QTreeView>
#include <QVBoxLayout>

#include "core/wording.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/print.h"
#include "frontend/qt/qt_desktop.h"
#include "frontend/qt/text.h"

namespace {

// The window that a question belongs to. Right after another question no window is the active one.
QWidget* askingWindow() {
  if (QWidget* const active = QApplication::activeWindow()) return active;
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window)) return window;
  }
  return nullptr;
}

constexpr Wording okCaption{"OK", "OK"};
constexpr Wording cancelCaption{"キャンセル", "Cancel"};
constexpr Wording yesCaption{"はい(&Y)", "&Yes"};
constexpr Wording noCaption{"いいえ(&N)", "&No"};

struct AnswerButton {
  BoxAnswer answer;
  QMessageBox::StandardButton button;
  Wording caption;
};

constexpr AnswerButton answerButtons[] = {
    {BoxAnswer::ok, QMessageBox::Ok, okCaption},
    {BoxAnswer::cancel, QMessageBox::Cancel, cancelCaption},
    {BoxAnswer::yes, QMessageBox::Yes, yesCaption},
    {BoxAnswer::no, QMessageBox::No, noCaption},
};

QMessageBox::Icon iconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::information:
      return QMessageBox::Information;
    case BoxIcon::question:
      return QMessageBox::Question;
    case BoxIcon::critical:
      return QMessageBox::Critical;
    case BoxIcon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::okCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::yesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::ok:
      break;
  }
  return QMessageBox::Ok;
}

// "Bin Image (*.bin)|*.bin": what the user sees, a bar, the patterns with ";" between them.
struct Filter {
  QString shownAs;
  QStringList patterns;
};

QList<Filter> filtersOf(const std::string& text) {
  const QStringList parts = shown(text).split(QLatin1Char('|'));
  QList<Filter> filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    filters.append({parts[i], parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts)});
  }
  return filters;
}

// The toolkit takes the patterns from the last brackets, so they are put there.
QString nameFilter(const Filter& filter) {
  const QString patterns =
      QLatin1Char('(') + filter.patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
  if (filter.shownAs.endsWith(patterns)) return filter.shownAs;
  return filter.shownAs + QLatin1Char(' ') + patterns;
}

// What a name without a suffix gets while the filter called `name` is chosen; "" for all files.
QString suffixOf(const QList<Filter>& filters, const QString& name) {
  for (const Filter& filter : filters) {
    if (nameFilter(filter) != name || filter.patterns.isEmpty()) continue;
    const QString suffix = QFileInfo(filter.patterns.first()).suffix();
    return suffix.contains(QLatin1Char('*')) ? QString() : suffix;
  }
  return {};
}

void nameParts(QFileDialog& box, QFileDialog::AcceptMode mode) {
  const auto text = [](const char* japanese, const char* english) {
    return shown(worded({japanese, english}));
  };
  const bool opening = mode == QFileDialog::AcceptOpen;
  box.setLabelText(QFileDialog::LookIn, text("場所:", "Look in:"));
  box.setLabelText(QFileDialog::FileName, text("ファイル名:", "File name:"));
  box.setLabelText(QFileDialog::FileType, text("ファイルの種類:", "Files of type:"));
  box.setLabelText(QFileDialog::Accept, opening ? text("開く", "Open") : text("保存", "Save"));
  box.setLabelText(QFileDialog::Reject, text("キャンセル", "Cancel"));
}

// Wide enough for names, sizes and dates.
void sizeParts(QFileDialog& box) {
  constexpr int nameWidth = 250, sizeWidth = 90, typeWidth = 90, dateWidth = 150;
  box.resize(780, 480);
  auto* const files = box.findChild<QTreeView*>();
  if (!files) return;
  int column = 0;
  for (const int width : {nameWidth, sizeWidth, typeWidth, dateWidth}) {
    files->setColumnWidth(column++, width);
  }
}

// The folder decides where the dialog opens; a file from elsewhere is proposed by its whole path.
void propose(QFileDialog& box, const FileDialog& dialog) {
  const QString file = shown(dialog.fileName), folder = shown(dialog.folder);
  auto* const name = box.findChild<QLineEdit*>();
  const QFileInfo proposed(file);
  const bool folderStands = QFileInfo(folder).isDir();
  const bool here = proposed.absoluteDir() == QDir(folder);
  // A dialog of the desktop shows a bare name, which would be that of a file in its folder.
  const bool misleads = !name && folderStands && !here && proposed.isAbsolute() &&
                        box.acceptMode() == QFileDialog::AcceptOpen;
  if (!file.isEmpty() && !misleads) box.selectFile(file);
  if (!folderStands) return;
  box.setDirectory(folder);
  if (!name || file.isEmpty()) return;
  name->setText(here ? proposed.fileName() : QDir::toNativeSeparators(file));
  name->selectAll();
}

std::optional<ChosenFile> chooseFile(const FileDialog& dialog, QFileDialog::AcceptMode mode) {
  const bool opening = mode == QFileDialog::AcceptOpen;
  QFileDialog box(askingWindow(), shown(dialog.title));
  box.setOption(QFileDialog::DontConfirmOverwrite);
  box.setAcceptMode(mode);
  box.setFileMode(opening ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  const QList<Filter> filters = filtersOf(dialog.filter);
  QStringList names;
  for (const Filter& filter : filters) names << nameFilter(filter);
  const QString all = shown(worded({"すべてのファイル (*)", "All files (*)"}));
  box.setNameFilters(names << all);
  if (!opening) {
    box.setDefaultSuffix(suffixOf(filters, names.value(0)));
    QObject::connect(&box, &QFileDialog::filterSelected, [&box, filters](const QString& name) {
      box.setDefaultSuffix(suffixOf(filters, name));
    });
  }
  sizeParts(box);
  nameParts(box, mode);
  propose(box, dialog);
  if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return std::nullopt;
  const QString path = QDir::toNativeSeparators(box.selectedFiles().constFirst());
  return ChosenFile{stored(path), stored(QFileInfo(path).fileName())};
}

// A long name keeps its beginning and its end, so that what stands beside it stays in sight.
QString textOf(const MessageBox& box) {
  constexpr int longest = 400;  // pixels
  const QString name = shown(box.name);
  const QFontMetrics metrics(QApplication::font("QMessageBox"));
  QString text = shown(box.text);
  if (name.isEmpty()) return text;
  return text.replace(name, metrics.elidedText(name, Qt::ElideMiddle, longest));
}

// Titles are often longer than what they stand over; in bold and beside the frame's own buttons.
void makeRoomForTitle(QMessageBox& box) {
  constexpr int frameParts = 120;
  QFont bold = box.font();
  bold.setBold(true);
  const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + frameParts;
  auto* const parts = qobject_cast<QGridLayout*>(box.layout());
  if (!parts) return;
  parts->addItem(new QSpacerItem(width, 0), parts->rowCount(), 0, 1, parts->columnCount());
}

}  // namespace

BoxAnswer QtDesktop::doShowBox(const MessageBox& box) {
  QMessageBox window(iconOf(box.icon), shown(box.title), textOf(box), buttonsOf(box.buttons),
                     askingWindow());
  window.setTextFormat(Qt::PlainText);
  window.setWindowModality(Qt::ApplicationModal);
  for (const AnswerButton& each : answerButtons) {
    if (auto* const button = window.button(each.button)) {
      button->setText(shown(worded(each.caption)));
    }
  }
  // OK beside Cancel, and Yes, give data up: that takes more than a hasty Enter.
  if (box.buttons == BoxButtons::okCancel) window.setDefaultButton(QMessageBox::Cancel);
  if (box.buttons == BoxButtons::yesNo) {
    window.setDefaultButton(QMessageBox::No);
    window.setEscapeButton(QMessageBox::No);
  }
  makeRoomForTitle(window);
  const int pressed = window.exec();
  for (const AnswerButton& each : answerButtons) {
    if (each.button == pressed) return each.answer;
  }
  return BoxAnswer::cancel;
}

std::string QtDesktop::doAskText(const TextPrompt& prompt) {
  QDialog window(askingWindow());
  window.setWindowTitle(shown(prompt.title));
  auto* const text = new QLabel(shown(prompt.text));
  text->setTextFormat(Qt::PlainText);
  auto* const entry = new QLineEdit(shown(prompt.answer));
  entry->selectAll();
  leaveAltKeys(entry);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  buttons->button(QDialogButtonBox::Ok)->setText(shown(worded(okCaption)));
  buttons->button(QDialogButtonBox::Cancel)->setText(shown(worded(cancelCaption)));
  QObject::connect(buttons, &QDialogButtonBox::accepted, &window, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
  auto* const rows = new QVBoxLayout(&window);
  for (QWidget* widget : std::initializer_list<QWidget*>{text, entry, buttons}) {
    rows->addWidget(widget);
  }
  entry->setFocus();
  return window.exec() == QDialog::Accepted ? stored(entry->text()) : std::string();
}

std::optional<ChosenFile> QtDesktop::doChooseFileToOpen(const FileDialog& dialog) {
  return chooseFile(dialog, QFileDialog::AcceptOpen);
}

std::optional<ChosenFile> QtDesktop::doChooseFileToSave(const FileDialog& dialog) {
  return chooseFile(dialog, QFileDialog::AcceptSave);
}

std::string QtDesktop::doChooseFolder(const std::string& title) {
  QFileDialog box(askingWindow(), shown(title));
  box.setOption(QFileDialog::ShowDirsOnly);
  box.setFileMode(QFileDialog::Directory);
  nameParts(box, QFileDialog::AcceptOpen);
  if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return {};
  return stored(QDir::toNativeSeparators(box.selectedFiles().constFirst()));
}

void QtDesktop::doShowPages(const PrintJob& job) { showPreview(askingWindow(), job); }
