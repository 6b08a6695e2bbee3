// Image files of any form, told by their content: Intel HEX and Motorola S-records of any line
// ends, record lengths, addresses and order, else raw bytes. Nothing is guessed: a record whose
// checksum or length is wrong is a fault that names its line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

enum class ImageFileForm { raw, intelHex, sRecords };

struct AddressRange {
  std::uint64_t from = 0;
  std::uint64_t to = 0;  // past the last
};

struct ImageContent {
  ImageFileForm form = ImageFileForm::raw;
  std::vector<std::uint8_t> bytes;  // from `base` on, gaps filled with FF
  std::uint32_t base = 0;           // the address of the first byte that the file gives
  std::vector<AddressRange> gaps;
  std::uint64_t overlapping = 0;  // bytes that the file gives more than once; the last one stands
  bool hasEnd = true;             // a record that ends the file was met
};

class ImageFault : public std::exception {
 public:
  ImageFault(std::size_t line, std::string what) : line_(line), what_(std::move(what)) {}
  std::size_t line() const { return line_; }  // from 1; 0: of no one line
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::size_t line_;
  std::string what_;
};

// By the beginning of a file; what is no record is raw.
ImageFileForm imageFileForm(std::span<const std::uint8_t> head);

// Throws ImageFault; records that span more than 1 GiB are one, too.
ImageContent readImageContent(std::span<const std::uint8_t> fileBytes);
// The same without a copy of raw bytes.
ImageContent readImageContent(std::vector<std::uint8_t>&& fileBytes);
// Up to `most` of the faults in a file's lines, the first of which it throws.
std::vector<ImageFault> imageFaults(std::span<const std::uint8_t> fileBytes, std::size_t most);

// The bytes from `base` on, FF before what the content gives. Throws ImageFault where the content
// begins before it.
std::vector<std::uint8_t> bytesFrom(const ImageContent& content, std::uint32_t base);
// The same without a copy where nothing stands before them; all but the bytes is left.
std::vector<std::uint8_t> bytesFrom(ImageContent&& content, std::uint32_t base);
// What it would throw.
std::optional<ImageFault> faultOfBase(const ImageContent& content, std::uint32_t base);
// Where an image begins if nobody says otherwise: at 0 for what begins below 8000 hexadecimal, else
// at the first byte.
std::uint32_t usualBase(const ImageContent& content);
