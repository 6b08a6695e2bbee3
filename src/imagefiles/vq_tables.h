// The airflow tables of nine known engines: read once at start, dropped into the image's airflow
// map by nine commands.
#pragma once

#include <cstdint>
#include <span>

// The commands of the menu.
void use_z32_vq();
void use_hcr32_vq();
void use_bnr32_vq();
void user_ecr33_vq();
void use_y32_vq();
void use_s13_vq();
void use_ps13_vq();
void use_s14_vq();
void use_s15_vq();

// Fills `EditorState.vqTables` from the files in the folder `vqmap` beside the program. A file that
// is missing or short leaves zeros, a long one is cut; nothing is said.
void loadVqTables();

// Puts `table` into the image's airflow map and draws it. A shorter map takes the table's end,
// after a box; a longer one is refused. Bytes that would lie outside the image are left out.
void useVqTable(std::span<const std::uint8_t> table);
