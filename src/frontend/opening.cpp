#include "frontend/opening.h"

#include <cstdint>
#include <utility>

#include "core/address_loading.h"
#include "core/extensions.h"
#include "core/notices.h"
#include "imagefiles/comparison_image.h"
#include "imagefiles/image_files.h"
#include "imagefiles/image_forms.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace {

constexpr const char* subject = "files from outside";

void tell(const BothTexts& what) {
  Notice notice{subject, NoticeKind::warning, what};
  notice.passes = true;
  tellNotice(std::move(notice));
}

BothTexts withAdvice(const BothTexts& what) {
  return {
      what.japanese +
          "開けるのは.bin、.hex、.adrのファイル1つです(Ctrlキーを押してドロップ: 比較元)。",
      what.english + " Open one .bin, .hex or .adr file (an image dropped with Ctrl: comparison)."};
}

bool isAddressMap(const std::string& path) { return extensionOf(path) == "ADR"; }

// Why a file can't be read; nothing where it may be tried.
BothTexts unreadable(const std::string& path) {
  const std::string name = fileNameOf(path);
  std::uintmax_t size = 0;
  const int failure = trapFailure([&] { size = fileSize(path); });
  if (failure != 0) {
    const std::string why = numberedFailure(failure);
    return {name + "を読めません: " + why + "。", name + " can't be read: " + why + "."};
  }
  if (size == 0) return {name + "は空です。", name + " is empty."};
  if (size <= largestImageFile) return {};
  const std::string bytes = std::to_string(size);
  return {name + "は大きすぎます: " + bytes + "バイト。",
          name + " is too large: " + bytes + " bytes."};
}

// The same for a file of which only its name tells what it is.
BothTexts obstacle(const std::string& path) {
  if (path.empty()) {
    return withAdvice(
        {"これはこのコンピューターのファイルではありません。", "That is no file of this machine."});
  }
  if (isAddressMap(path) || imageFormOf(path)) return unreadable(path);
  const std::string name = fileNameOf(path);
  return withAdvice({name + "はイメージでもアドレスマップでもありません。",
                     name + " is neither an image nor an address map."});
}

// Folders are handed over with one behind them.
void dropLastSeparator(std::string& path) {
  if (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) path.pop_back();
}

BothTexts tooMany(std::size_t count) {
  const std::string number = std::to_string(count);
  return withAdvice({number + "個のファイルです。", "Those are " + number + " files."});
}

struct Sorted {
  std::vector<std::string> maps, images;
};

Sorted sorted(const std::vector<std::string>& paths) {
  Sorted sorted;
  for (const std::string& path : paths) {
    (isAddressMap(path) ? sorted.maps : sorted.images).push_back(path);
  }
  return sorted;
}

void openImage(const std::string& path, Opening how) {
  const ImageForm& form = *imageFormOf(path);
  how == Opening::compared ? loadComparisonFrom(path, form) : loadImageFrom(path, form);
}

}  // namespace

void openFiles(std::vector<std::string> paths, Opening how) {
  withdrawNotice(subject);
  for (std::string& path : paths) dropLastSeparator(path);
  for (const std::string& path : paths) {
    const BothTexts why = obstacle(path);
    if (why != BothTexts{}) return tell(why);
  }
  const auto [maps, images] = sorted(paths);
  const bool several =
      how == Opening::named ? maps.size() > 1 || images.size() > 1 : paths.size() > 1;
  if (several) return tell(tooMany(paths.size()));
  for (const std::string& path : maps) loadAddressMapFrom(path);
  for (const std::string& path : images) openImage(path, how);
}

void openRecentMap(const std::string& path) {
  withdrawNotice(subject);
  const BothTexts why = unreadable(path);
  why == BothTexts{} ? loadAddressMapFrom(path) : tell(why);
}
