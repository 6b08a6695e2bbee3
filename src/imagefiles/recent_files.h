// The recent files: up to nine saved images in the per-user store, newest first, and the entries at
// the end of the File menu that show them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// A command has saved `path`: a file not yet listed comes to the top, a listed one stays where it
// is. A store that can't be written changes nothing; nothing here fails.
void addRecentFile(const std::string& path);
// Where the image begins of a listed file that was saved in the form and at the addresses which its
// content tells; nothing for one that its name tells.
std::optional<std::uint32_t> recentBase(const std::string& path);
// True if a menu entry, hidden or not, has exactly this caption.
bool isRecentFile(const std::string& path);
// Moves all entries one down and stores `path` as the first; the ninth falls off.
void pushRecentFile(const std::string& path);
// Sets the menu from the store. An empty store leaves the menu as it is.
void rebuildRecentMenu();
// Deletes the list. The hidden entries keep their captions, so that a file of the old list counts
// as known until the program is started anew.
void clearRecentFiles();
