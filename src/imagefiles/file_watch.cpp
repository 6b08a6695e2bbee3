#include "imagefiles/file_watch.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "core/earlier_states.h"
#include "core/notices.h"
#include "imagefiles/any_form.h"
#include "imagefiles/earlier_states_window.h"
#include "imagefiles/image_files.h"
#include "imagefiles/image_forms.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/replacement_record.h"

namespace {

constexpr const char* subject = "the image's file";
constexpr const char* replacedSubject = "what a save replaced";

enum class Found { same, changed, missing };

struct WatchedFile {
  std::string path;
  ContentMark content;
  std::optional<FileStamp> stamp = {};  // when last looked at; none before the first look
  Found found = Found::same;
};

std::vector<WatchedFile> watched;

bool isAt(const WatchedFile& file, const std::string& path) {
  return file.path == path || nameSameFile(file.path, path);
}

Found foundIn(const WatchedFile& file) {
  if (file.stamp == FileStamp{}) return Found::missing;
  if (file.stamp->size != file.content.size) return Found::changed;
  Found found = Found::missing;
  trapFailure([&] {
    const bool same = markOf(readFile(file.path, file.content.size + 1)) == file.content;
    found = same ? Found::same : Found::changed;
  });
  return found;
}

enum class Look { brief, thorough };

void look(WatchedFile& file, Look how) {
  FileStamp stamp;
  trapFailure([&] { stamp = fileStamp(file.path); });
  if (how == Look::brief && file.stamp == stamp) return;
  file.stamp = stamp;
  file.found = foundIn(file);
}

std::string timeOf(const WatchedFile& file) {
  constexpr std::int64_t nanoseconds = 1'000'000'000;
  return localTime("%Y-%m-%d %H:%M", file.stamp->written / nanoseconds);
}

// An image of two files has no one to load again.
std::vector<NoticeAction> waysOn(const WatchedFile& file) {
  if (watched.size() != 1) return {};
  const BothTexts again{"読み直す", "Load again"};
  if (const auto& layout = editorState.imageLayout) {
    return {{again, [path = file.path, base = layout->base] { loadAnyFormFrom(path, base); }}};
  }
  const ImageForm* const named = imageFormOf(file.path);
  const ImageForm& form = named ? *named : rawImages;
  return {{again, [path = file.path, &form] { loadImageFrom(path, form); }}};
}

void tellMissing(const std::string& name) {
  tellNotice({subject,
              NoticeKind::warning,
              {name + "はもう元の場所にないか、読めません。",
               name + " isn't in its place any more, or can't be read."}});
}

void tellChanged(const std::string& name, const WatchedFile& file) {
  const std::string time = timeOf(file);
  tellNotice({subject,
              NoticeKind::warning,
              {name + "は" + time + "に他から変更されました。保存するとそれを置き換えます。",
               name + " was changed by others (" + time + "). A save will replace that."},
              waysOn(file)});
}

void tellReplaced(const std::string& name, const WatchedFile& file) {
  const std::string time = timeOf(file);
  Notice notice{replacedSubject,
                NoticeKind::warning,
                {"保存により、他から変更された" + name + " (" + time + ")を置き換えました。",
                 "The save replaced what others had written to " + name + " (" + time + ")."}};
  if (hasEarlierStates()) {
    notice.actions = {{{"以前の状態", "Earlier states"}, showEarlierStates}};
  }
  tellNotice(std::move(notice));
}

void tellOfFiles() {
  const auto notSame = [](const WatchedFile& file) { return file.found != Found::same; };
  const auto file = std::ranges::find_if(watched, notSame);
  if (file == watched.end()) return withdrawNotice(subject);
  const std::string name = fileNameOf(file->path);
  file->found == Found::missing ? tellMissing(name) : tellChanged(name, *file);
}

}  // namespace

void watchFiles(std::span<const FileContent> files) {
  withdrawNotice(subject);
  withdrawNotice(replacedSubject);
  watched.clear();
  for (const FileContent& file : files) watched.push_back({file.path, markOf(file.bytes)});
}

RomImage readWatched(const std::string& path) {
  RomImage bytes = readImageFile(path);
  const FileContent file{path, bytes};
  watchFiles({&file, 1});
  return bytes;
}

void lookAtFiles() {
  if (editorState.imageSize == 0) return withdrawNotice(subject);
  const auto before = watched;
  for (WatchedFile& file : watched) look(file, Look::brief);
  const auto looksTheSame = [](const WatchedFile& one, const WatchedFile& other) {
    return one.stamp == other.stamp;
  };
  if (!std::ranges::equal(before, watched, looksTheSame)) tellOfFiles();
}

void lookBeforeSave(const std::string& path) {
  withdrawNotice(replacedSubject);
  for (WatchedFile& file : watched) {
    if (isAt(file, path)) look(file, Look::thorough);
  }
  tellOfFiles();
}

void noteWritten(const std::string& path, std::span<const std::uint8_t> bytes) {
  for (WatchedFile& file : watched) {
    if (!isAt(file, path)) continue;
    const WatchedFile former = std::exchange(file, WatchedFile{path, markOf(bytes)});
    if (former.found == Found::changed) tellReplaced(fileNameOf(path), former);
  }
  tellOfFiles();
}

void watchSaved(const std::string& path, std::span<const std::uint8_t> bytes) {
  noteWritten(path, bytes);
  std::erase_if(watched, [&](const WatchedFile& file) { return !isAt(file, path); });
  if (watched.empty()) watched.push_back({path, markOf(bytes)});
}
