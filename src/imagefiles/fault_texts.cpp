#include "imagefiles/fault_texts.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace {

constexpr std::array<Wording, 16> known{{
    {"桁数が奇数です", "an odd number of digits"},
    {"1レコードのバイト数を超えています", "more bytes than a record can have"},
    {"16進でない文字があります", "a character that is no hexadecimal digit"},
    {"行が「:」で始まっていません", "a line that does not begin with \":\""},
    {"行が「S」で始まっていません", "a line that does not begin with \"S\""},
    {"レコードが短すぎます", "a record that is too short"},
    {"バイト数がレコードと合いません", "a byte count that is not the record's"},
    {"チェックサムが違います", "a wrong checksum"},
    {"アドレスレコードの長さが2ではありません", "an address record of another length than 2"},
    {"未知のレコード種別です", "an unknown record type"},
    {"レコード数がファイルと合いません", "a number of records that is not the file's"},
    {"データがありません", "no byte of data"},
    {"空のファイルです", "an empty file"},
    {"最初と最後のバイトが1 GiB以上離れています",
     "more than 1 GiB between the first and the last byte"},
    {"先頭のアドレスより前にデータがあります", "bytes before the base address"},
    {"先頭のアドレスから1 GiBを超えます", "more than 1 GiB from the base address on"},
}};

}  // namespace

BothTexts textsOf(const ImageFault& fault) {
  const std::string_view english = fault.what();
  const auto isIt = [&](const Wording& each) { return english == each.english; };
  const auto text = std::ranges::find_if(known, isIt);
  const std::string what(english);
  const std::string japanese = text == known.end() ? what : text->japanese;
  if (fault.line() == 0) {
    const char first = what.front();
    const char capital =
        first >= 'a' && first <= 'z' ? static_cast<char>(first - 'a' + 'A') : first;
    return {japanese, capital + what.substr(1)};
  }
  const std::string line = std::to_string(fault.line());
  return {line + "行目: " + japanese, "Line " + line + ": " + what};
}
