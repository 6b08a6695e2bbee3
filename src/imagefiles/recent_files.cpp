#include "imagefiles/recent_files.h"

#include <algorithm>
#include <cstddef>

#include "controls/desktop.h"
#include "core/form1.h"
#include "core/own_files.h"

namespace {

const std::string section = "Recent Files";
constexpr int listedFiles = 9;

std::string keyOf(int place) { return "RecentFile" + std::to_string(place); }

void showEntry(std::size_t index, const std::string& path) {
  MenuItem& item = *form1().mnuRecentFile[index];
  item.setCaption(path);
  item.setVisible(true);
}

}  // namespace

void addRecentFile(const std::string& path) {
  if (!isRecentFile(path)) pushRecentFile(path);
  rebuildRecentMenu();
}

bool isRecentFile(const std::string& path) {
  return std::ranges::any_of(form1().mnuRecentFile,
                             [&](const MenuItem* item) { return item->caption() == path; });
}

void pushRecentFile(const std::string& path) {
  bool stored = true;
  for (int place = listedFiles - 1; place >= 1; --place) {
    const std::string listed = desktop().storedValue(section, keyOf(place));
    if (!listed.empty()) stored = desktop().storeValue(section, keyOf(place + 1), listed) && stored;
  }
  stored = desktop().storeValue(section, keyOf(1), path) && stored;
  stored ? tellWritten(OwnFile::recentFiles) : tellNotWritten(OwnFile::recentFiles);
}

void rebuildRecentMenu() {
  if (desktop().storedValue(section, keyOf(1)).empty()) return;
  std::size_t index = 0;
  for (const auto& [key, path] : desktop().storedSection(section)) {
    if (index == listedFiles) break;
    showEntry(index++, path);
  }
}

void clearRecentFiles() {
  if (!desktop().deleteSection(section)) return;
  for (MenuItem* item : form1().mnuRecentFile) item->setVisible(false);
}
