#include "core/content_kind.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"

namespace {

using namespace std::string_view_literals;

struct Signature {
  std::string_view bytes;
  Wording kind;
  std::size_t offset = 0;
};

constexpr Wording picture{"画像", "a picture"};
constexpr Wording archive{"圧縮ファイル", "an archive"};
constexpr Wording document{"文書", "a document"};
constexpr Wording program{"プログラム", "a program"};

const Signature signatures[] = {
    {"\x89PNG\r\n\x1A\n"sv, picture},
    {"\xFF\xD8\xFF"sv, picture},
    {"GIF87a"sv, picture},
    {"GIF89a"sv, picture},
    {"II*\0"sv, picture},
    {"MM\0*"sv, picture},
    {"WEBPVP8"sv, picture, 8},
    // The bitmap's four bytes behind its size.
    {"\0\0\0\0\x36\0\0\0\x28\0\0\0"sv, picture, 6},
    {"PK\x03\x04"sv, archive},
    {"PK\x05\x06"sv, archive},
    {"\x1F\x8B\x08"sv, archive},
    {"7z\xBC\xAF\x27\x1C"sv, archive},
    {"Rar!\x1A\x07"sv, archive},
    {"\xFD"
     "7zXZ\0"sv,
     archive},
    {"\x28\xB5\x2F\xFD"sv, archive},
    {"MSCF\0\0\0\0"sv, archive},
    {"1AY&SY"sv, archive, 4},
    {"-lh5-"sv, archive, 2},
    {"-lh7-"sv, archive, 2},
    {"ustar"sv, archive, 257},
    {"%PDF-"sv, document},
    {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, document},
    {"\x7F"
     "ELF"sv,
     program},
    {"This program cannot be run in DOS mode"sv, program, 78},
};

constexpr Wording intelHex{"Intel HEXのテキスト (「任意の形式の読み込み」で読めます)",
                           "Intel HEX text (Exchange > Load any form takes it)"};
constexpr Wording sRecords{"Sレコードのテキスト (「任意の形式の読み込み」で読めます)",
                           "S-record text (Exchange > Load any form takes it)"};
constexpr Wording text{"テキスト", "a text"};

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\t' && c != '\r' && c != '\n' && c != '\f') || byte == 0x7F;
}

// Whole lines: what is cut behind them may end within a character.
bool isText(std::string_view bytes) {
  const std::string_view lines = bytes.substr(0, bytes.find_last_of("\r\n") + 1);
  return !lines.empty() && std::ranges::none_of(bytes, isControl) &&
         decodeText(lines).find("\uFFFD") == std::string::npos;
}

// ":10" or "S1" and so on: `sign`, and digits up to the line's end.
bool isRecord(std::string_view bytes, char sign) {
  constexpr std::size_t shortest = 10;
  const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  return line.size() >= shortest && line.front() == sign &&
         line.find_first_not_of("0123456789ABCDEFabcdef", 1) == std::string_view::npos;
}

}  // namespace

const Wording* contentKindOf(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t lookedAt = 4096;
  const std::string_view head(reinterpret_cast<const char*>(bytes.data()),
                              std::min(bytes.size(), lookedAt));
  for (const Signature& each : signatures) {
    if (head.size() < each.offset) continue;
    if (head.substr(each.offset).starts_with(each.bytes)) return &each.kind;
  }
  if (!isText(head)) return nullptr;
  if (isRecord(head, ':')) return &intelHex;
  return isRecord(head, 'S') ? &sRecords : &text;
}
