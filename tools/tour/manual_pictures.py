"""Pictures of single windows for the manual, in both languages, with the tour's gestures.

Usage: manual_pictures.py PORTABLE_FOLDER DOOR_FOLDER PICTURES_FOLDER   (on the display in force)
"""

import os
import shutil
import sys
import tempfile

from door import middle
from screen import run
from tour import COMPARISON_BOX, MAP, SPEED_SCALE, Tour

MAP_SIZE = (900, 500)
GLOBAL_SIZE = (1180, 620)
LOOKS_SIZE = (1040, 620)
MARKS_SIZE = (960, 560)
NOTICE_SIZE = (900, 420)
SURFACE = "3D GRAPH EDIT"
CURVE = "load scale|TPスケール"
DIFFERENCES = "^(Differences|相違一覧)$"
ANY_FORM_FILE = "^(Image of any form|任意の形式のファイル)$"
ANY_FORM = "^(Load any form|任意の形式の読み込み)$"
EARLIER_STATES = "^(Earlier states|以前の状態)$"
PRINT = "^(Print|印刷)$"
PREVIEW = "^(Print Preview|印刷のプレビュー)"
HALF_MINUTE = 31  # seconds after which what isn't saved is kept
TOO_FAST = "15000"  # rpm that no byte of the scale holds


class Photographer(Tour):
    def take(self, window, name):
        """A window with its frame, in few colours."""
        self.screen.settle(0.4)
        path = os.path.join(self.screen.pictures, f"{name}_{self.language}.png")
        run("xdotool", "mousemove", "1900", "1430")
        self.screen.settle(0.3)
        run("import", "-frame", "-window", str(window["native"]), path)
        run("convert", path, "-strip", "-dither", "none", "-colors", "200",
            "-define", "png:compression-level=9", f"PNG8:{path}")

    def start(self):
        self.open()
        self.door.wait("the splash window", lambda seen: seen["window"] == "frmSplash")
        self.screen.click_on("QWidget", object="frmSplash")
        self.screen.wait_for("^ZELKOVA$")
        self.screen.keys("ctrl+o")
        self.choose_file("load", os.path.join(self.folder, "demo", "demo.bin"))
        self.main = self.screen.wait_for("demo.bin - ZELKOVA")
        run("xdotool", "windowmove", "--sync", str(self.main["native"]), "60", "60")

    def take_panels(self):
        self.resize(MAP_SIZE)
        self.select(range(2, 6), range(9, 14))
        self.take(self.main, "form1")
        self.tab("airflow")
        self.take(self.main, "airflow")
        self.resize(GLOBAL_SIZE)
        self.tab("global")
        self.take(self.main, "global")
        self.tab("high_fuel")

    def take_looks(self):
        self.resize(LOOKS_SIZE)
        self.menu("view", "zoom", "zoom_150")
        self.menu("view", "map_colours")
        self.screen.click(self.cell(4, 8))
        self.take(self.main, "looks")
        self.menu("view", "map_colours")
        self.menu("view", "zoom", "zoom_100")

    def resize(self, size):
        run("xdotool", "windowsize", "--sync", str(self.main["native"]), *map(str, size))
        self.screen.settle(0.5)

    def take_preview(self):
        self.screen.keys("ctrl+p")
        self.screen.wait_for(PRINT)
        self.screen.keys("Return")
        self.take(self.screen.wait_for(PREVIEW), "print")
        self.screen.keys("Escape")
        self.screen.wait_until_gone(PREVIEW)

    def take_graphs(self):
        self.menu("file_load", "Norika", "comp_bin")
        self.choose_file("compare", self.comparison_image())
        self.screen.keys("ctrl+g")
        window = self.screen.wait_for(SURFACE)
        canvas = self.door.find("QWidget", focus=True)
        self.screen.settle(6)  # the hint goes by itself
        self.screen.click_on("QCheckBox", text=COMPARISON_BOX)
        self.screen.click(middle(canvas))
        self.screen.keys(*["Up"] * 7, *["Right"] * 8)
        self.take(window, "graph3d")
        self.screen.keys("Escape")
        self.screen.wait_until_gone(SURFACE)
        self.menu("edit_0", "G_EDIT_RR", "TP_2D")
        window = self.screen.wait_for(CURVE)
        self.screen.keys("Right", "Right", "Right")
        self.take(window, "tpcurve")
        self.screen.keys("Escape")
        self.screen.wait_until_gone(CURVE)

    def comparison_image(self):
        """The demo image with a richer corner, so that two surfaces are seen."""
        image = bytearray(self.original)
        for row in range(16):
            for column in range(16):
                k = self.car.entries["HIGH_FUEL"].address + 16 * row + column
                image[k] = min(255, image[k] + row * column // 8)
        with open(self.saved("other.bin"), "wb") as file:
            file.write(image)
        return self.saved("other.bin")

    def take_differences(self):
        """What a friend changed, then marks, notice and status line over them."""
        self.menu("file_load", "Norika", "comp_bin")
        self.choose_file("compare", self.friends_image())
        self.menu("view", "against_comparison")
        self.screen.keys("ctrl+d")
        self.take(self.screen.wait_for(DIFFERENCES), "differences")
        self.screen.keys("Escape")
        self.screen.wait_until_gone(DIFFERENCES)
        self.resize(MARKS_SIZE)
        self.select(range(7, 9), range(9, 13))
        self.screen.keys("plus")
        self.enter(self.cell(14, 1, SPEED_SCALE), TOO_FAST)
        self.screen.keys("Return")
        self.gone("ask")
        self.screen.click(self.cell(4, 8))
        self.take(self.main, "marks")
        self.screen.keys("ctrl+z", "ctrl+z")

    def friends_image(self):
        """Two cells of the map, one of a scale, one of a small table, a limit, a stray byte."""
        image = bytearray(self.original)
        places = {name: self.car.entries[name].address
                  for name in ("HIGH_FUEL", "TP_SCALE_FUEL", "AF_LIMIT", "REV1_LIMIT")}
        for place, change in ((places["HIGH_FUEL"] + 0x37, 7), (places["HIGH_FUEL"] + 0x48, 4),
                              (places["TP_SCALE_FUEL"] + 5, 1), (places["AF_LIMIT"] + 3, -2),
                              (places["REV1_LIMIT"] + 1, 8), (0x6000, 1)):
            image[place] = (image[place] + change) % 256
        with open(self.saved("friend.bin"), "wb") as file:
            file.write(image)
        return self.saved("friend.bin")

    def take_dialog(self, name, picture, *path):
        self.menu(*path)
        self.take(self.wait(name), picture)
        self.screen.uncounted_keys("alt+F4")
        self.gone(name)

    def take_address_editor(self):
        self.menu("edit_0", "DDDEEDS", "ADR_EDIT")
        self.wait("address")
        for text in ("1000", "16", "16"):
            self.screen.keys("ctrl+a")
            self.screen.type(text)
            self.screen.keys("Tab")
        self.screen.keys("Return")
        self.door.find("grid", **MAP)
        self.take(self.wait("address"), "address_editor")
        self.screen.keys("Escape")
        self.gone("address")

    def take_any_form(self):
        """An Intel HEX file that leaves out what nothing uses."""
        with open(self.saved("ecu.hex"), "w", newline="\n") as file:
            for start in (*range(0x800, 0x4000, 16), *range(0x6000, 0x8000, 16)):
                data = self.original[start:start + 16]
                record = bytes([16, start >> 8, start & 255, 0]) + data
                file.write(f":{record.hex().upper()}{-sum(record) % 256:02X}\n")
            file.write(":00000001FF\n")
        self.menu("exchange", "load_any_form")
        self.screen.wait_for(ANY_FORM_FILE)
        self.screen.type(self.saved("ecu.hex"))
        self.screen.keys("Return")
        self.screen.wait_until_gone(ANY_FORM_FILE)
        self.take(self.screen.wait_for(ANY_FORM), "anyform")
        self.screen.keys("Escape")
        self.screen.wait_until_gone(ANY_FORM)

    def take_notice(self):
        """Another program writes the image's file; the window is the active one again."""
        shutil.copy(self.saved("other.bin"), os.path.join(self.folder, "demo", "demo.bin"))
        self.menu("S___", "set_spl")
        self.wait("engine")
        self.screen.keys("Escape")
        self.gone("engine")
        self.resize(NOTICE_SIZE)
        self.take(self.main, "notice")

    def take_earlier_states(self):
        """Saves over the original, edits that end with the program, and what its next start says."""
        for row in (4, 9):
            self.select(range(row, row + 2), range(9, 14))
            self.screen.keys("plus")
            self.screen.keys("ctrl+s")
            self.screen.settle(0.5)
        self.select(range(2, 6), range(3, 6))
        self.screen.keys("plus")
        self.screen.settle(HALF_MINUTE)
        self.process.kill()
        self.process.wait(20)
        self.start()
        self.resize(MARKS_SIZE)
        self.take(self.main, "earlier_strip")
        self.menu("changes", "earlier_states")
        self.take(self.screen.wait_for(EARLIER_STATES), "earlier_states")
        self.screen.keys("Escape")
        self.screen.wait_until_gone(EARLIER_STATES)

    def run(self):
        self.start()
        self.take_panels()
        self.take_preview()
        self.take_looks()
        self.take_differences()
        self.take_graphs()
        self.take_address_editor()
        self.take_dialog("af", "af_table", "edit_0", "AF_DISP_FORM")
        self.take_dialog("engine", "engine", "S___", "set_spl")
        self.take_dialog("environment", "environment", "S___", "SET_DEFAULT_FOLDER")
        self.take_dialog("pair", "oddeven", "file_load", "odd_even_file")
        self.take_any_form()
        self.take_notice()
        self.take_earlier_states()
        self.screen.uncounted_keys("ctrl+q")
        self.process.wait(20)


def main():
    portable, door_folder, pictures = sys.argv[1:]
    for language in ("en", "ja"):
        with tempfile.TemporaryDirectory() as place:
            folder = os.path.join(place, "zelkova")
            shutil.copytree(portable, folder)
            photographer = Photographer(folder, door_folder, pictures, language)
            try:
                photographer.run()
            finally:
                if photographer.process and photographer.process.poll() is None:
                    photographer.process.kill()


if __name__ == "__main__":
    main()
