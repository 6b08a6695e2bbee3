// Files for others: a map as CSV, SVG or PNG, and a report of all that the image holds.
#pragma once

#include <string>

// The menu commands.

// The whole map with the cursor, in the form that the chosen file's name ends in.
void exportMap();
// All maps, parameters and engine figures, and what differs, as one page that needs no other file.
void exportReport();

// The page.
std::string reportText();
