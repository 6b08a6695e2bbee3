// The settings: 25 lines of `zelkova.ini` in the program's folder, known by their position alone.
// Read once at start; written whole by the commands that change a setting.
#pragma once

#include <string>

// Reads the settings, sets the engine line, then reads and parses the address map named in them. A
// missing file, folder or path passes silently; any other failure shows a box. Values read before a
// failing line stay in force.
void readSettings();

// Writes all settings. Fails with the number of the input/output failure.
void writeSettings();

// Writes all settings for a dialog that goes on whatever happens: a failure shows a box.
void saveSettingsOrTell();

// A path as the settings hold it, found: relative paths count from the program's folder.
std::string settledPath(const std::string& path);
