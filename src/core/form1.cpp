#include "core/form1.h"

#include <memory>
#include <utility>

#include "controls/gesture.h"

namespace {

constexpr Colour mapLines = rgb(64, 64, 64);
constexpr Grid::Look mapLook{white, mapLines};
constexpr Grid::Look scaleLook{{}, rgb(192, 192, 192)};
// The size of a grid that no address map has sized yet, header row and column included.
constexpr int designRows = 2;
constexpr int designColumns = 17;
constexpr int airflowDesignColumns = 8;
constexpr int rpmRows = 16;

std::unique_ptr<Form1> mainWindow;

Grid mapGrid(Window& owner, int columns = designColumns) {
  return Grid(owner, designRows, columns, 1, 1, mapLook);
}

Grid tpGrid(Window& owner) { return Grid(owner, designRows, designColumns, 1, 1, scaleLook); }

Grid rpmGrid(Window& owner) { return Grid(owner, rpmRows, 1, 0, 0, scaleLook); }

}  // namespace

std::vector<TabStrip::Tab> Form1::designTabs() {
  return {{"ﾊｲｵｸ燃料ﾏｯﾌﾟ", "ﾊｲｵｸ燃料補正ﾏｯﾌﾟの編集"},
          {"ﾊｲｵｸ点火ﾏｯﾌﾟ", "ﾊｲｵｸ点火補正ﾏｯﾌﾟの編集"},
          {"ﾚｷﾞｭﾗｰ燃料ﾏｯﾌﾟ", "ﾚｷﾞｭﾗｰ燃料補正ﾏｯﾌﾟの編集"},
          {"ﾚｷﾞｭﾗｰ点火ﾏｯﾌﾟ", "ﾚｷﾞｭﾗｰ点火補正ﾏｯﾌﾟの編集"},
          {"VQ ﾏｯﾌﾟ", "VQ MAP(ｴｱﾌﾛﾏｯﾌﾟ)の編集"},
          {"Add ﾏｯﾌﾟ1", "追加ﾏｯﾌﾟ１の編集"},
          {"Add ﾏｯﾌﾟ2", "追加ﾏｯﾌﾟ2の編集"},
          {"Add ﾏｯﾌﾟ3", "追加ﾏｯﾌﾟ3の編集"},
          {"Add ﾏｯﾌﾟ4", "追加ﾏｯﾌﾟ4の編集"},
          {"Add ﾏｯﾌﾟ5", "追加ﾏｯﾌﾟ5の編集"},
          {"Add ﾏｯﾌﾟ6", "追加ﾏｯﾌﾟ6の編集"},
          {"Add ﾏｯﾌﾟ7", "追加ﾏｯﾌﾟ7の編集"},
          {"Add ﾏｯﾌﾟ8", "追加ﾏｯﾌﾟ8の編集"},
          {"GLOBAL", "各種定数、ﾘﾐｯﾀｰの編集"}};
}

Form1::Form1()
    : Window("Form1"),
      TabStrip1(*this, designTabs()),
      Grid1(mapGrid(*this)),
      Grid2(mapGrid(*this)),
      Grid3(mapGrid(*this)),
      Grid4(mapGrid(*this)),
      Grid5(mapGrid(*this, airflowDesignColumns)),
      Grid6(mapGrid(*this)),
      Grid7(mapGrid(*this)),
      Grid8(mapGrid(*this)),
      Grid9(mapGrid(*this)),
      AddGrid1(mapGrid(*this)),
      AddGrid2(mapGrid(*this)),
      AddGrid3(mapGrid(*this)),
      AddGrid4(mapGrid(*this)),
      AddGrid11(mapGrid(*this)),
      AddGrid12(mapGrid(*this)),
      AddGrid13(mapGrid(*this)),
      AddGrid14(mapGrid(*this)),
      TP_FUEL(tpGrid(*this)),
      TP_FIRE(tpGrid(*this)),
      RPM_FUEL(rpmGrid(*this)),
      RPM_FIRE(rpmGrid(*this)) {
  setCaption("ZELKOVA");
  Label14.setColour(rgb(192, 192, 0));
  Label17.setColour(rgb(128, 128, 128));
  Label21.setColour(rgb(64, 64, 64));
}

void Form1::bringPanelToFront(int tab) {
  frontPanel_ = tab;
  if (observer) observer({Change::shape});
}

Form1& form1() {
  if (!mainWindow) mainWindow = std::make_unique<Form1>();
  return *mainWindow;
}

void discardForm1() {
  watchGestures(nullptr);
  mainWindow.reset();
}
