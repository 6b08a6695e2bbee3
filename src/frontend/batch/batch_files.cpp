#include "frontend/batch/batch_files.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>

#include "platform/failure.h"
#include "platform/file_names.h"
#include "platform/files.h"
#include "platform/text_encoding.h"
#include "rom/address_check.h"
#include "rom/intel_hex_writer.h"
#include "rom/srecord_writer.h"

namespace {

constexpr const char* standardStream = "-";
constexpr std::size_t largestFile = 0x40000000;
constexpr std::size_t largestText = 0x1000000;
constexpr std::uint64_t addresses = 0x100000000;

// Runs `step`; a Failure becomes trouble with the file's name.
template <class Step>
auto naming(const std::string& path, Step step) {
  try {
    return step();
  } catch (const Failure& failure) {
    throw Trouble(path + ": " + failureText(failure.number()));
  }
}

Bytes readStandardInput() {
  Bytes bytes;
  std::array<std::uint8_t, 65536> part;
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), stdin)) {
    bytes.insert(bytes.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(count));
    if (bytes.size() > largestFile) throw Trouble("standard input: more than 1 GiB");
  }
  if (std::ferror(stdin) != 0) throw Trouble("standard input can't be read to its end");
  return bytes;
}

// Raw bytes tell no address: they begin where they are said to.
void beginAt(std::uint32_t base, ImageFile& file) {
  if (base + std::uint64_t{file.content.bytes.size()} > addresses) {
    throw Trouble(file.path + ": would end beyond address FFFFFFFF: say a smaller --base");
  }
  file.content.base = base;
}

std::span<const std::uint8_t> bytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

Bytes readWhole(const std::string& path) {
  if (path == standardStream) return readStandardInput();
  return naming(path, [&] {
    if (fileSize(path) > largestFile) throw Trouble(path + ": more than 1 GiB");
    return readFile(path, largestFile);
  });
}

ImageFile readImage(const std::string& path, std::optional<std::uint32_t> base) {
  ImageFile file{path, {}, 0, {}};
  try {
    file.content = readImageContent(readWhole(path));
    if (base && file.content.form == ImageFileForm::raw) beginAt(*base, file);
    file.base = base.value_or(usualBase(file.content));
    file.image = bytesFrom(std::move(file.content), file.base);
  } catch (const ImageFault& fault) {
    const std::string line = fault.line() == 0 ? "" : ":" + std::to_string(fault.line());
    throw Trouble(path + line + ": " + fault.what());
  }
  return file;
}

std::string readAddressText(const std::string& path) {
  const Bytes bytes = readWhole(path);
  if (bytes.size() > largestText) throw Trouble(path + ": too long for an address map");
  return decodeText({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

AddressMap readAddressMap(const std::string& path) {
  CheckedAddressMap checked = checkAddressMap(readAddressText(path));
  const auto stops = std::ranges::find_if(
      checked.problems, [](const AddressProblem& each) { return each.stopsReading; });
  if (stops != checked.problems.end()) {
    const std::string line = stops->line > 0 ? ":" + std::to_string(stops->line) : "";
    throw Trouble(path + line + ": " + stops->what + "; \"zelkova-batch check\" tells all");
  }
  return std::move(checked.map);
}

void requireRoom(const std::string& path, WhenThere whenThere) {
  std::error_code unknown;  // told by the write
  if (path == standardStream || whenThere == WhenThere::replace) return;
  if (std::filesystem::exists(systemPath(path), unknown)) {
    throw Trouble(path + " is there already: name another file, or replace it with --force");
  }
}

void writeWhole(const std::string& path, std::span<const std::uint8_t> bytes, WhenThere whenThere) {
  if (path == standardStream) {
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
    if (!written || std::fflush(stdout) != 0) throw Trouble("standard output can't be written");
    return;
  }
  requireRoom(path, whenThere);
  naming(path, [&] { replaceFile(path, bytes); });
}

void writeWhole(const std::string& path, const std::string& text, WhenThere whenThere) {
  writeWhole(path, bytesOf(text), whenThere);
}

void writeWhole(const std::string& path, const Encoded& file, WhenThere whenThere) {
  writeWhole(path, file.text.empty() ? file.image : bytesOf(file.text), whenThere);
}

namespace {

struct FormNames {
  ImageFileForm form;
  const char* name;
  std::array<std::string_view, 8> extensions;
};
constexpr std::array<FormNames, 3> formNames{
    {{ImageFileForm::raw, "raw", {"raw", "bin", "rom"}},
     {ImageFileForm::intelHex, "hex", {"hex", "ihex", "ihx"}},
     {ImageFileForm::sRecords, "srec", {"srec", "s19", "s28", "s37", "mot", "sre", "s"}}}};

}  // namespace

std::optional<ImageFileForm> formNamed(const std::string& name) {
  std::string last = name.substr(name.find_last_of('.') + 1);
  std::ranges::transform(last, last.begin(), [](char c) {
    return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  });
  for (const FormNames& each : formNames) {
    if (!last.empty() && std::ranges::find(each.extensions, last) != each.extensions.end()) {
      return each.form;
    }
  }
  return {};
}

const char* nameOf(ImageFileForm form) { return formNames[static_cast<std::size_t>(form)].name; }

Encoded encoded(const Bytes& image, ImageFileForm form, std::uint32_t base) {
  switch (form) {
    case ImageFileForm::intelHex:
      if (base == 0) return {intelHexText(image), {}};
      return {intelHexText(std::array{AddressedBytes{base, image}}), {}};
    case ImageFileForm::sRecords:
      return {sRecordText(image, base), {}};
    case ImageFileForm::raw:
      break;
  }
  return {"", image};
}
