#include "imagefiles/vq_tables.h"

#include <algorithm>
#include <array>
#include <string>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/history.h"
#include "core/image_bytes.h"
#include "core/map_display.h"
#include "core/progress.h"
#include "core/wording.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"

namespace {

const Wording cutTitle{"切り詰め", "I cut and stuff it"};
const Wording cutBefore{"頭の", "I stuffed "};
const Wording cutBehind{" byteを詰めて、後ろから貼り付けました。",
                        " byte of a head and glued and attached it from behind."};
const Wording tooLongTitle{"変換エラー", "Conversion error"};
const Wording tooLong{
    "読み込まれているROM DATAの、VQMAP size が128byte以上あるので変換できません。",
    "They can convert it, as there are VQMAP 128 size, of a reading crowdeded ROM DATA more than "
    "byte."};

// The order of the tables in `EditorState.vqTables`.
enum Engine : std::size_t { z32, hcr32, bnr32, ecr33, y32, s13, ps13, s14, s15 };

struct TableFile {
  const char* name;
  std::size_t bytes;
};

constexpr std::array<TableFile, vqTableCount> tableFiles = {{{"z32_vq_map.bin", 128},
                                                             {"hcr32_vq_map.bin", 128},
                                                             {"bnr32_vq_map.bin", 128},
                                                             {"ecr33_vq_map.bin", 128},
                                                             {"y32_vq_map.bin", 128},
                                                             {"s13_vq_map.bin", 104},
                                                             {"ps13_vq_map.bin", 128},
                                                             {"s14_vq_map.bin", 128},
                                                             {"s15_vq_map.bin", 128}}};

void useTableOf(Engine engine) {
  useVqTable(std::span(editorState.vqTables[engine]).first(tableFiles[engine].bytes));
}

void tellCut(std::size_t skip) {
  desktop().showBox(
      {BoxIcon::information, BoxButtons::ok, worded(cutTitle),
       worded(cutBefore) + signedBlank(static_cast<std::int64_t>(skip)) + worded(cutBehind)});
}

void convert(std::span<const std::uint8_t> table, const MapEntry& map) {
  const std::size_t room = static_cast<std::size_t>(std::max(map.bytes, 0));
  if (room > table.size()) {
    desktop().showBox({BoxIcon::critical, BoxButtons::ok, worded(tooLongTitle), worded(tooLong)});
    return;
  }
  const std::size_t skip = table.size() - room;
  setImageBytes(map.address, table.subspan(skip));
  if (skip > 0) tellCut(skip);
}

}  // namespace

void use_z32_vq() { useTableOf(z32); }
void use_hcr32_vq() { useTableOf(hcr32); }
void use_bnr32_vq() { useTableOf(bnr32); }
void user_ecr33_vq() { useTableOf(ecr33); }
void use_y32_vq() { useTableOf(y32); }
void use_s13_vq() { useTableOf(s13); }
void use_ps13_vq() { useTableOf(ps13); }
void use_s14_vq() { useTableOf(s14); }
void use_s15_vq() { useTableOf(s15); }

void loadVqTables() {
  const std::string folder = joinPath(editorState.appPath, "vqmap");
  for (std::size_t i = 0; i < vqTableCount; ++i) {
    auto& bytes = editorState.vqTables[i];
    bytes.fill(0);
    trapFailure([&] {
      std::ranges::copy(readFile(joinPath(folder, tableFiles[i].name), tableFiles[i].bytes),
                        bytes.begin());
    });
  }
}

void useVqTable(std::span<const std::uint8_t> table) {
  nameStep({"VQ MAP変更", "VQ table"});
  convert(table, editorState.addressMap.map(VQ_MAP));
  drawMap(VQ_MAP);
  setProgress(-1);
}
