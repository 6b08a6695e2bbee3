#include "imagefiles/recent_files.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <sstream>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/own_files.h"

namespace {

const std::string section = "Recent Files";
constexpr int listedFiles = 9;

std::string keyOf(int place) { return "RecentFile" + std::to_string(place); }

// Beside the list, whose entries are paths alone: the address of an image's first byte, a blank and
// the path, a line for each.
const std::string basesSection = "Recent Bases";
const std::string basesKey = "Bases";

using Bases = std::map<std::string, std::uint32_t>;  // by path

Bases storedBases() {
  std::istringstream lines(desktop().storedValue(basesSection, basesKey));
  Bases bases;
  std::uint32_t base = 0;
  std::string path;
  while (lines >> base && std::getline(lines.ignore(), path)) bases[path] = base;
  return bases;
}

// The image was saved as `path`; what is no longer listed goes.
void keepBase(const std::string& path) {
  const Bases former = storedBases();
  Bases bases = former;
  bases.erase(path);
  if (editorState.imageLayout) bases[path] = editorState.imageLayout->base;
  std::erase_if(bases, [](const auto& each) { return !isRecentFile(each.first); });
  if (bases == former) return;
  std::string text;
  for (const auto& [name, base] : bases) text += std::to_string(base) + ' ' + name + '\n';
  desktop().storeValue(basesSection, basesKey, text);
}

void showEntry(std::size_t index, const std::string& path) {
  MenuItem& item = *form1().mnuRecentFile[index];
  item.setCaption(path);
  item.setVisible(true);
}

}  // namespace

void addRecentFile(const std::string& path) {
  if (!isRecentFile(path)) pushRecentFile(path);
  rebuildRecentMenu();
  keepBase(path);
}

std::optional<std::uint32_t> recentBase(const std::string& path) {
  const Bases bases = storedBases();
  const auto base = bases.find(path);
  if (base == bases.end()) return std::nullopt;
  return base->second;
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
  desktop().deleteSection(basesSection);
  if (!desktop().deleteSection(section)) return;
  for (MenuItem* item : form1().mnuRecentFile) item->setVisible(false);
}
