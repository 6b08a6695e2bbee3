#include "address_map_text.h"

#include <cstdio>

#include "demo_car.h"
#include "platform/text_encoding.h"

namespace {

std::string line(const std::string& text) { return text + "\r\n"; }

// Additional maps in decimal, all others in hexadecimal, to show both forms.
std::string addressText(const DemoEntry& entry) {
  if (std::string(entry.keyword).starts_with("ADD_MAP")) return std::to_string(entry.address);
  char text[16];
  std::snprintf(text, sizeof text, "&H%X", static_cast<unsigned>(entry.address));
  return text;
}

std::string block(const DemoEntry& entry, const char* caption) {
  return line(entry.keyword) + line(addressText(entry)) + line(std::to_string(entry.columns)) +
         line(std::to_string(entry.rows)) + line(std::to_string(entry.bytes)) + line(entry.scale) +
         line(caption);
}

std::string addressMap(const char* comment, const char* model, const char* DemoEntry::*caption) {
  std::string text = line(comment) + line("TYPE_UNIT") + line(model);
  for (const auto& entry : demoEntries()) {
    text += line(std::string("# ") + entry.keyword);
    text += block(entry, entry.*caption);
  }
  return text;
}

}  // namespace

std::string englishAddressMap() {
  return addressMap("# A made-up car: no real control unit looks like this.",
                    "Demo car 2.0 turbo (made up)", &DemoEntry::english);
}

std::string japaneseAddressMap() {
  return encodeText(addressMap("# 架空の車です。実在する車のデータではありません。",
                               "デモカー 2.0 ターボ (架空)", &DemoEntry::japanese));
}
