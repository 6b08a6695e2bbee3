// Exchange with spreadsheets by the clipboard: the selected cells as a table of values, and a table
// of values into the cells from the current one on.
#pragma once

// The menu commands.

// The selection as tab-separated text and as HTML at once. A whole map has its scales as first row
// and first column.
void copyForSpreadsheet();
// All of the table or nothing: a field that is no number, that the map can't hold or that lies
// outside its grid is named, and nothing changes. The map's scales around a table are left out.
void pasteFromSpreadsheet();
