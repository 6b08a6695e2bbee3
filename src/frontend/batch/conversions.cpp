#include <algorithm>
#include <array>
#include <filesystem>

#include "frontend/batch/batch_commands.h"
#include "frontend/batch/many_files.h"
#include "frontend/batch/written_files.h"
#include "platform/file_names.h"
#include "platform/files.h"
#include "rom/map_traits.h"
#include "rom/map_values.h"

namespace {

constexpr int bytesOfKbit = 128;
constexpr std::array<int, 6> sizes{64, 128, 256, 512, 1024, 2048};

std::string inFolder(const Arguments& arguments, const std::string& path, ImageFileForm form) {
  const std::string name = fileNameOf(path);
  const std::string stem = name.substr(0, std::min(name.find_last_of('.'), name.size()));
  const std::string extension = form == ImageFileForm::raw ? "bin" : nameOf(form);
  return joinPath(arguments.folder, stem + "." + extension);
}

FileResult convertOne(const Arguments& arguments, const std::string& from, const std::string& to,
                      ImageFileForm form) {
  requireRoomForJson(arguments, to);
  const ImageFile file = readImage(from, arguments.base);
  writeWhole(to, encoded(file.image, form, file.base), arguments.whenThere);
  return tellOf(arguments, {{from}, to, nameOf(form), file.image.size()});
}

// Two files of one folder must not become one.
void requireNamesOnce(std::vector<std::string> names) {
  std::ranges::sort(names);
  const auto twice = std::ranges::adjacent_find(names);
  if (twice != names.end()) throw Trouble(*twice + ": two files would become this one");
}

int convertMany(const Arguments& arguments) {
  const ImageFileForm form = formOf(arguments, "");
  std::vector<std::string> names;
  for (const std::string& each : arguments.images) {
    names.push_back(inFolder(arguments, each, form));
  }
  requireNamesOnce(names);
  if (!std::filesystem::is_directory(systemPath(arguments.folder))) {
    throw Trouble(arguments.folder + ": no such folder; make it first");
  }
  return tellWritten(arguments, forEachFile(names.size(), [&](std::size_t i) {
                       return convertOne(arguments, arguments.images[i], names[i], form);
                     }));
}

// The bytes of the whole image that a pair stands for.
std::size_t pairBytes(const Arguments& arguments, std::size_t own) {
  if (arguments.kbit == 0) return own;
  if (std::ranges::find(sizes, arguments.kbit) == sizes.end()) {
    throw Trouble("--kbit takes 64, 128, 256, 512, 1024 or 2048");
  }
  return static_cast<std::size_t>(arguments.kbit) * bytesOfKbit;
}

}  // namespace

int convert(const Arguments& arguments) {
  if (!arguments.folder.empty()) return convertMany(arguments);
  if (arguments.images.size() != 2) {
    throw Trouble("convert takes IN and OUT, or --into FOLDER --to FORM and any number of files");
  }
  const std::string& to = arguments.images[1];
  return tellWritten(arguments,
                     {convertOne(arguments, arguments.images[0], to, formOf(arguments, to))});
}

int split(const Arguments& arguments) {
  const ImageFile file = readImage(arguments.images[0], arguments.base);
  const std::size_t bytes = pairBytes(arguments, file.image.size());
  if (bytes > file.image.size()) {
    throw Trouble(file.path + ": the image has only " + std::to_string(file.image.size()) +
                  " bytes");
  }
  if (bytes % 2 != 0) throw Trouble(file.path + ": an odd number of bytes makes no pair");
  std::array<Bytes, 2> halves;
  for (std::size_t i = 0; i < bytes; ++i) halves[i % 2].push_back(file.image[i]);
  const std::array forms{formOf(arguments, arguments.images[1]),
                         formOf(arguments, arguments.images[2])};
  if (nameSameFile(arguments.images[1], arguments.images[2])) {
    throw Trouble(arguments.images[2] + ": both halves would become this one");
  }
  requireRoom(arguments.images[2], arguments.whenThere);
  std::vector<FileResult> results;
  for (std::size_t i = 0; i < 2; ++i) {
    const std::string& to = arguments.images[1 + i];
    requireRoomForJson(arguments, to);
    writeWhole(to, encoded(halves[i], forms[i], 0), arguments.whenThere);
    results.push_back(tellOf(arguments, {{file.path}, to, nameOf(forms[i]), halves[i].size()}));
  }
  return tellWritten(arguments, std::move(results));
}

int join(const Arguments& arguments) {
  const std::array<ImageFile, 2> halves{readImage(arguments.images[0], arguments.base),
                                        readImage(arguments.images[1], arguments.base)};
  const std::size_t half = halves[0].image.size();
  if (half != halves[1].image.size()) {
    throw Trouble("the halves have " + std::to_string(half) + " and " +
                  std::to_string(halves[1].image.size()) + " bytes");
  }
  const std::size_t bytes = pairBytes(arguments, 2 * half);
  if (bytes > 2 * half) throw Trouble("the halves have fewer bytes than --kbit asks for");
  Bytes image(bytes);
  for (std::size_t i = 0; i < bytes; ++i) image[i] = halves[i % 2].image[i / 2];
  const std::string& to = arguments.images[2];
  const ImageFileForm form = formOf(arguments, to);
  requireRoomForJson(arguments, to);
  writeWhole(to, encoded(image, form, 0), arguments.whenThere);
  return tellWritten(
      arguments, {tellOf(arguments, {{halves[0].path, halves[1].path}, to, nameOf(form), bytes})});
}

int take(const Arguments& arguments) {
  const AddressMap map = readAddressMap(arguments.map);
  const ImageFile from = readImage(arguments.images[0], arguments.base);
  ImageFile to = readImage(arguments.images[1], arguments.base);
  const auto carry = [&](const char* keyword, std::int64_t address, std::int64_t bytes) {
    if (!holdsBytes(from.image, address, bytes) || !holdsBytes(to.image, address, bytes)) {
      throw Trouble(std::string(keyword) + " lies beyond the end of an image");
    }
    const auto place = static_cast<std::ptrdiff_t>(address);
    std::copy_n(from.image.begin() + place, bytes, to.image.begin() + place);
  };
  const NamedEntries named = entriesNamed(map, arguments.maps);
  for (const MapId id : named.maps) {
    const MapShape shape = shapeOf(map, id);
    carry(traitsOf(id).keyword, shape.address, shape.end() - shape.address);
  }
  for (const ParamId id : named.params) {
    carry(traitsOf(id).keyword, map.param(id).address, map.param(id).bytes);
  }
  const ImageFileForm form = formOf(arguments, arguments.output, to.content.form);
  requireRoomForJson(arguments, arguments.output);
  writeWhole(arguments.output, encoded(to.image, form, to.base), arguments.whenThere);
  return tellWritten(
      arguments,
      {tellOf(arguments, {arguments.images, arguments.output, nameOf(form), to.image.size()})});
}
