// The menu of the main window: one table of level, name, both captions, shortcut, routine, what
// must hold before the routine starts, and how the row follows the program's state.
#pragma once

#include <cstdint>
#include <span>

#include "core/wording.h"

class MenuItem;

// Tabs, as bits.
using Tabs = std::uint32_t;

// What a command that changes or shows an image's maps asks for, in this order: an image, then a
// tab other than `refusedTabs`. The first that fails is told in a box, and the command ends.
struct CommandGuard {
  Wording withoutRom;
  Tabs refusedTabs = 0;
  Wording onRefusedTab{};
};

struct MenuRow {
  int level;  // 1 to 4
  const char* name;
  const char* japanese;  // "-": a separator
  const char* english;   // empty: the same in both languages
  const char* shortcut;
  void (*routine)();  // null for menus and separators
  const CommandGuard* guard = nullptr;
  // Gives the row's record the caption, tick and enabling that the state in force asks for; null
  // for a row that never changes.
  void (*follow)(MenuItem& item) = nullptr;
};

std::span<const MenuRow> menuRows();

// Adds the records of `shown` below `bar`, with their Japanese captions. A menu that opens lets its
// rows follow the state in force first.
void addMenuRows(MenuItem& bar, std::span<const MenuRow> shown);

// Makes the menu bar's records from the table.
void makeMainMenu();
