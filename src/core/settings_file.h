// The settings: 25 lines of `zelkova.ini` in the program's folder, known by their position alone.
// Read once at start; written whole by the commands that change a setting.
#pragma once

#include <string>

// Reads the settings, sets the engine line, then reads and parses the address map named in them. A
// missing file, folder or path passes silently; any other failure shows a box. Values read before a
// failing line stay in force, and the file counts as damaged.
void readSettings();

// Writes all settings; the bytes of a damaged file are kept as `zelkova.ini.damaged` first. Fails
// with the number of the input/output failure.
void writeSettings();

// Writes all settings for a command that goes on whatever happens: a failure goes into the log
// under the name of the operation, shows a box and stays in the notice strip until settings are
// written.
void saveSettingsOrTell(const std::string& operation);

// A path as the settings hold it, found: relative paths count from the program's folder.
std::string settledPath(const std::string& path);
