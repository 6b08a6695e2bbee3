// Any words as a call, and any bytes as what its files hold: it ends by one of the codes that are
// told, leaves nothing half written, and replaces nothing unless it was told to.
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <sstream>

#include "bed.h"
#include "frontend/batch/batch_command_line.h"
#include "little_memory.h"
#include "rom/intel_hex_writer.h"
#include "rom/srecord_writer.h"

namespace {

using Files = std::map<std::string, std::string>;

Files goodFiles() {
  std::string image(300, '\x55');
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<char>(i * 37);
  return {{"a.bin", image},
          {"a.hex", intelHexText(bytesOf(image))},
          {"a.s19", sRecordText(bytesOf(image), 0x8000)},
          {"a.adr",
           "TYPE_UNIT\nCAR\nHIGH_FUEL,16,5,4,20,0,Fuel\nVQ_MAP,45,6,1,12,0,Air\n"
           "ADD_MAP1,57,3,3,9,3,More\nREV1_LIMIT,82,2,1,2,12.5,Rev\nK_DATA,84,3,1,3,0,\n"},
          {"lean", "add HIGH_FUEL 1-2,* -3 below 90\nsmooth HIGH_FUEL *\nparameter K_DATA A1B2C3"}};
}

// A folder inside one of its own, so that ".." leads nowhere else.
class Place {
 public:
  Place() { std::filesystem::create_directory(inner_), std::filesystem::current_path(inner_); }

  void put(const Files& files) {
    for (const auto& [name, text] : files) {
      if (held(name) != text) std::ofstream(name, std::ios::binary) << text;
    }
  }
  static std::string held(const std::string& name) {
    return fileExists(name) ? contentOf(name) : std::string();
  }
  // Takes away what a call has written; none of it may be a half of a replacement.
  void clear(const Files& files, const std::string& call) {
    for (const auto& folder : {outer_.path(), inner_}) {
      for (const auto& each : std::filesystem::directory_iterator(folder)) {
        const std::string name = each.path().filename().string();
        if (each.path() == inner_ || files.contains(name)) continue;
        require(call.find("zelkova") != call.npos || name.find(".zelkova-") == name.npos);
        std::filesystem::remove_all(each.path());
      }
    }
  }

 private:
  ScratchFolder outer_;
  std::filesystem::path inner_ = outer_.path() / "inner";
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Place place;
  static const Files good = goodFiles();
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(input.find('\n'), input.size());
  std::string call(input.substr(0, end));
  std::ranges::replace(call, '/', '_');
  std::istringstream stream(call);
  const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
  Files files = good;
  files["any"] = input.substr(std::min(end + 1, size));
  place.put(files);
  {
    const FuzzBed bed;
    const LittleMemory memory;
    const int code = runCommandLine(words);
    require(code >= 0 && code <= 2);
    useDesktop(nullptr);
  }
  const bool may = std::ranges::any_of(
      words, [](const std::string& each) { return each.starts_with("--force"); });
  for (const auto& [name, text] : files) require(may || Place::held(name) == text);
  place.clear(files, call);
  return 0;
}
