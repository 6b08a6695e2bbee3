// The menu command that picks an address map file and puts it in force.
#pragma once

void load_map_addr();
