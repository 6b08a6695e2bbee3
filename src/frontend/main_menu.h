// The menu of the main window: one table of level, name, both captions, shortcut and routine.
#pragma once

#include <cstddef>
#include <span>

struct MenuRow {
  int level;  // 1 to 4
  const char* name;
  const char* japanese;  // "-": a separator
  const char* english;   // empty: the same in both languages
  const char* shortcut;
  void (*routine)();  // null for menus and separators
};

std::span<const MenuRow> menuRows();

// Makes the menu bar's records from the table, with their Japanese captions.
void makeMainMenu();
