#include "core/image_notices.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>

#include "core/content_kind.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "core/notices.h"
#include "core/stored_bytes.h"

namespace {

constexpr const char* contentsSubject = "what the image looks like";
constexpr const char* fitSubject = "entries outside the image";

struct Outside {
  std::int64_t count = 0;
  std::int64_t end = 0;  // past the last byte of all entries
  std::string names;

  void look(ByteStretch stretch, const std::string& name) {
    end = std::max(end, stretch.to);
    const std::int64_t size = editorState.imageSize;
    if (stretch.from >= stretch.to || (stretch.from >= 0 && stretch.to <= size)) return;
    ++count;
    names += (names.empty() ? "" : ", ") + name;
  }
};

Outside lookAtEntries() {
  Outside outside;
  for (const MapKind& kind : mapKinds()) outside.look(stretchOf(kind), nameOf(kind));
  for (const ParamKind& kind : paramKinds()) {
    outside.look(stretchOf(kind), (form1().*kind.label).caption());
  }
  return outside;
}

// Chips hold a power of two.
BothTexts madeFor(std::int64_t end) {
  constexpr std::int64_t mostGuessed = 0x1000000;
  if (end <= editorState.imageSize || end > mostGuessed) return {};
  const std::string size = std::to_string(std::bit_ceil(static_cast<std::uint64_t>(end)));
  return {"(このマップは" + size + "バイトのイメージ用のようです)",
          " (the map seems made for " + size + " bytes)"};
}

}  // namespace

void tellContents() {
  const Wording* const kind = contentKindOf(editorState.image);
  if (!kind) return withdrawContents();
  tellNotice(
      {contentsSubject,
       NoticeKind::warning,
       {std::string("読み込んだのはROMイメージではなく、") + kind->japanese + "のようです。",
        std::string("What was loaded looks like ") + kind->english + ", not like a ROM image."}});
}

void tellWhetherMapFits() {
  const Outside outside = lookAtEntries();
  if (outside.count == 0) return withdrawWhetherMapFits();
  const std::string count = std::to_string(outside.count);
  const BothTexts size = madeFor(outside.end);
  tellNotice({fitSubject,
              NoticeKind::warning,
              {"アドレスマップの" + count + "項目がイメージの外にあります" + size.japanese + ": " +
                   outside.names,
               count +
                   (outside.count == 1 ? " entry of the address map lies"
                                       : " entries of the address map lie") +
                   " outside the image" + size.english + ": " + outside.names}});
}

void tellOtherWayIn(const BothTexts& what, const std::function<void()>& loadIt) {
  tellNotice(
      {contentsSubject, NoticeKind::warning, what, {{{"任意の形式", "Load any form"}, [loadIt] {
                                                       withdrawContents();
                                                       loadIt();
                                                     }}}});
}

void withdrawContents() { withdrawNotice(contentsSubject); }

void withdrawWhetherMapFits() { withdrawNotice(fitSubject); }
