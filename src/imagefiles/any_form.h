// Loading an image of any form, told by its content: the dialog tells what the file holds and asks
// where the image begins, before anything is replaced.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/desktop.h"
#include "controls/window.h"
#include "core/editor_state.h"
#include "core/row_list.h"
#include "rom/image_reading.h"

struct ImageForm;

// A file as it was read, and what its bytes give.
struct FoundImage {
  ChosenFile file;
  RomImage bytes;
  ImageContent content;
  std::vector<ImageFault> faults;  // none: `content` can be loaded
};

struct AnyFormWindow : Window {
  AnyFormWindow();

  Label heading{*this};
  RowList list;
  Label baseLabel{*this}, verdict{*this};
  TextBox base{*this};
  Button load{*this}, cancel{*this};

  // Opens over `image`, which would begin at `from`, if that is known, else at its usual base.
  void open(FoundImage image, std::optional<std::uint32_t> from);

 private:
  void fill();
  void judge();
  void loadIt();

  FoundImage found_;
  std::optional<std::uint32_t> chosenBase_;  // none: what stands in the box is no base for it
};

extern AnyFormWindow anyFormWindow;

// The menu command.
void loadAnyForm();
// The same, but the file is known already, and where its image begins.
void loadAnyFormFrom(const std::string& path, std::optional<std::uint32_t> base = {});

// Makes the file's bytes the loaded image. Gives them back where the given Intel HEX reader read
// them, to be looked into once all is loaded.
RomImage takeDecoded(const ImageForm& form, RomImage bytes);
// The Intel HEX loader failed with `failure` on the file: the notice strip offers the command, if
// the file holds records.
void offerAnyForm(const ImageForm& form, const std::string& path, int failure);
// It made the image that is loaded of these records: the strip says so if they are damaged or give
// something else by their addresses.
void tellIfReadOtherwise(const std::string& path, const RomImage& records);
