#include "core/recent_maps.h"

#include "controls/desktop.h"
#include "core/own_files.h"

namespace {

const std::string section = "Recent Address Maps";

std::string keyOf(std::size_t place) { return "RecentMap" + std::to_string(place); }

}  // namespace

void addRecentMap(const std::string& path) {
  std::vector<std::string> maps = recentMaps();
  if (!maps.empty() && maps.front() == path) return;
  std::erase(maps, path);
  maps.insert(maps.begin(), path);
  if (maps.size() > recentMapCount) maps.pop_back();
  bool stored = true;
  for (std::size_t i = 0; i < maps.size() && stored; ++i) {
    stored = desktop().storeValue(section, keyOf(i + 1), maps[i]);
  }
  stored ? tellWritten(OwnFile::recentMaps) : tellNotWritten(OwnFile::recentMaps);
}

std::vector<std::string> recentMaps() {
  std::vector<std::string> maps;
  for (std::size_t place = 1; place <= recentMapCount; ++place) {
    const std::string path = desktop().storedValue(section, keyOf(place));
    if (!path.empty()) maps.push_back(path);
  }
  return maps;
}

void clearRecentMaps() { desktop().deleteSection(section); }
