"""A tuner's tour through the real windows, with real keys and mouse: every row of the menu once, a
picture of each step, and every saved file compared byte for byte with what a plain restatement of
the commands gives.

Usage: tour.py PORTABLE_FOLDER PICTURES_FOLDER en|ja [SCALE]   (on the display in force)
"""

import os
import shutil
import subprocess
import sys
import tempfile

from car import Car, read_address_map
from screen import Screen

FILE, EDIT, SETUP, HELP = range(4)
FIRST_CELL = (303, 160)
FIRST_PLAIN_CELL = (262, 118)
CELL = (29, 16)
TP_CELL = (303, 118)
RPM_CELL = (219, 160)
# The captions of the tabs are narrower in Japanese, and all behind them stands further left.
SHIFT = {"en": 0, "ja": -52}
TAB = (60, 77)
TAB_PITCH = 24
MENU = (20, 9)

TITLES = {
    "en": {
        "ask": "Data change", "load": "Load BIN Image", "save": "Save BIN Image",
        "exists": "A file exists already", "add": "Addition and reduction",
        "multiply": "Multiplication", "smooth": "^Smooth", "shift": "Data shift",
        "maps": "Data copy. Fuel", "scales": "Data copy. TP", "address": "Address designated",
        "af": "A/F Display", "engine": "Specification set up", "environment": "Environment set up",
        "about": "Version Info", "pair": "Odd/Even File", "load_hex": "Load IntelHEX Image",
        "save_hex": "Save IntelHEX Image", "compare": "Load BIN Image For",
        "compare_hex": "Load IntelHEX Image For", "map": "The address information",
        "odd_save": "Save ODD BIN", "even_save": "Save EVEN BIN", "odd_load": "Load ODD BIN",
        "even_load": "Load EVEN BIN", "discard": "I confirm it including", "quit": "I confirm a pre",
        "cut": "I cut and stuff it", "restart": "^ZELKOVA$",
    },
    "ja": {
        "ask": "データ変更", "load": "BIN Image 読み込み", "save": "BIN Image 書き込み",
        "exists": "ファイルは既に", "add": "データ増減", "multiply": "データ乗算",
        "smooth": "スムージング", "shift": "マップシフト", "maps": "燃料・点火データコピー",
        "scales": "TP/回転スケールコピー", "address": "アドレス指定編集", "af": "A/F表示",
        "engine": "仕様設定", "environment": "環境設定", "about": "ﾊﾞｰｼﾞｮﾝ情報",
        "pair": "偶数/奇数ファイル", "load_hex": "IntelHEX Image 読み込み",
        "save_hex": "IntelHEX Image 書き込み", "compare": "比較用　BIN Image",
        "compare_hex": "比較用　IntelHEX Image", "map": "機種別アドレス情報",
        "odd_save": "奇数　BIN", "even_save": "偶数　BIN", "odd_load": "奇数 BIN",
        "even_load": "偶数 BIN", "discard": "読み込み確認", "quit": "保存確認",
        "cut": "切り詰め", "restart": "^ZELKOVA$",
    },
}


class Tour:
    def __init__(self, folder, pictures, language, scale):
        self.folder = folder
        self.files = os.path.join(folder, "saved")
        os.makedirs(self.files)
        self.language = language
        self.screen = Screen(pictures, language, scale)
        self.titles = TITLES[language]
        self.set_language()
        map_path = os.path.join(folder, "demo", f"demo_{language}.adr")
        with open(os.path.join(folder, "demo", "demo.bin"), "rb") as file:
            self.original = file.read()
        self.car = Car(self.original, read_address_map(map_path))
        self.checked = 0

    def set_language(self):
        path = os.path.join(self.folder, "zelkova.ini")
        with open(path, "rb") as file:
            lines = file.read().split(b"\r\n")
        lines[1] = f"demo/demo_{self.language}.adr".encode()
        lines[16] = b" 1 " if self.language == "en" else b" 0 "
        with open(path, "wb") as file:
            file.write(b"\r\n".join(lines))

    # Gestures.

    def menu(self, top, *path):
        self.screen.click(*MENU)
        self.screen.keys(*["Right"] * top or ["Down"])
        for level, index in enumerate(path):
            if level > 0:
                self.screen.keys("Right")
            self.screen.keys(*["Down"] * index)
        self.screen.keys("Return")

    def tab(self, number):
        self.screen.click(TAB[0], TAB[1] + TAB_PITCH * (number - 1))

    def cell(self, row, column, first=FIRST_CELL):
        left = first[0] + SHIFT[self.language]
        return (left + CELL[0] * (column - 1), first[1] + CELL[1] * (row - 1))

    def select(self, rows, columns, first=FIRST_CELL):
        self.screen.drag(self.cell(rows[0], columns[0], first),
                         self.cell(rows[-1], columns[-1], first))

    def wait(self, name):
        return self.screen.wait_for(self.titles[name])

    def gone(self, name):
        self.screen.wait_until_gone(self.titles[name])

    def choose_file(self, name, path, picture=None):
        self.wait(name)
        if picture:
            self.screen.shot(picture)
        self.screen.keys("ctrl+a")
        self.screen.type(path)
        self.screen.keys("Return")
        self.gone(name)

    def saved(self, name):
        return os.path.join(self.files, name)

    def enter(self, place, text):
        self.screen.click(*place, times=2)
        self.wait("ask")
        self.screen.keys("ctrl+a")
        self.screen.type(text)
        return text

    def expect(self, what, found, wanted):
        if found != wanted:
            differing = [i for i, (a, b) in enumerate(zip(found, wanted)) if a != b][:8]
            raise SystemExit(f"{what}: {len(found)} bytes for {len(wanted)}, first differences at "
                             + ", ".join(f"{i:X}: {found[i]} for {wanted[i]}" for i in differing))
        self.checked += 1

    def expect_file(self, name, wanted):
        with open(self.saved(name), "rb") as file:
            self.expect(name, file.read(), bytes(wanted))

    def press_in_dialog(self, name):
        """The two buttons of the pair dialog stand at its left, one below the other."""
        self.screen.click_in(self.wait("pair"), 80, {"load": -66, "save": -28}[name])

    def show_comparison(self):
        window = self.screen.wait_for("3D GRAPH EDIT")
        self.screen.click_in(window, 517, -108)
        return window

    # Steps.

    def start(self):
        program = os.path.join(self.folder, "zelkova")
        self.process = subprocess.Popen([program], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        splash = self.screen.wait_for("zelkova", by="--class")
        self.screen.settle(0.5)
        self.screen.shot("splash")
        self.screen.click_in(splash, 320, 180)
        self.screen.place_main_window("^ZELKOVA$", 60, 60)
        self.screen.shot("empty")

    def load(self):
        self.screen.keys("ctrl+o")
        demo = os.path.join(self.folder, "demo", "demo.bin")
        self.choose_file("load", demo, "load_dialog")
        self.screen.wait_for("demo.bin - ZELKOVA")
        self.screen.shot("fuel_map")

    def edit_cells(self):
        self.enter(self.cell(1, 1), "25")
        self.screen.shot("cell_prompt")
        self.screen.keys("Return")
        self.gone("ask")
        self.car.put("HIGH_FUEL", 1, 1, 25)
        rows, columns = range(2, 5), range(9, 13)
        self.select(rows, columns)
        self.screen.keys("plus", "plus", "plus", "minus")
        self.car.step("HIGH_FUEL", self.car.block(rows, columns), 2)
        self.screen.shot("stepped_block")

    def edit_scales(self):
        self.enter(self.cell(1, 16, TP_CELL), "130")
        self.screen.keys("Return")
        self.gone("ask")
        self.car.put("TP_SCALE_FUEL", 1, 16, 130)
        self.enter(self.cell(16, 1, RPM_CELL), "8234")
        self.screen.keys("Return")
        self.gone("ask")
        self.car.put("RPM_SCALE_FUEL", 1, 16, 164)
        self.screen.shot("scales")

    def save_as(self):
        self.menu(FILE, 2, 0)
        self.choose_file("save", self.saved("edited.bin"), "save_dialog")
        self.screen.wait_for("edited.bin - ZELKOVA")
        self.expect_file("edited.bin", self.car.image)

    def copy_and_paste(self):
        rows, columns = range(6, 9), range(10, 15)
        self.select(rows, columns)
        self.screen.keys("ctrl+c")
        self.tab(3)
        self.select(rows, columns, FIRST_PLAIN_CELL)
        self.screen.keys("ctrl+v")
        self.screen.shot("pasted_block")
        self.car.copy_cells("HIGH_FUEL", "REG_FUEL", self.car.block(rows, columns))
        self.tab(1)

    def bulk_changes(self):
        rows, columns = range(11, 15), range(1, 7)
        cells = self.car.block(rows, columns)
        self.select(rows, columns)
        self.menu(EDIT, 3, 0)
        self.dialog("add", ["110", "12"], "add_dialog")
        self.car.add("HIGH_FUEL", cells, 110, 12)
        self.menu(EDIT, 3, 1)
        self.dialog("multiply", ["110", "1.5"], "multiply_dialog")
        self.car.multiply("HIGH_FUEL", cells, 110, 1.5)
        rows, columns = range(8, 14), range(5, 12)
        self.select(rows, columns)
        self.screen.shot("before_smoothing")
        self.menu(EDIT, 3, 2)
        self.dialog("smooth", ["140"], "smooth_dialog")
        self.car.smooth("HIGH_FUEL", rows, columns, 140)
        self.screen.shot("after_smoothing")

    def dialog(self, name, texts, picture):
        self.wait(name)
        for text in texts:
            self.screen.keys("ctrl+a")
            self.screen.type(text)
            self.screen.keys("Tab")
        self.screen.shot(picture)
        self.screen.keys("Return")
        self.gone(name)

    def shift(self):
        self.tab(2)
        self.screen.shot("ignition_map")
        self.menu(EDIT, 3, 4)
        self.wait("shift")
        self.screen.shot("shift_dialog")
        self.screen.keys("Return")
        self.gone("shift")
        self.screen.shot("shifted_with_scale")
        self.car.shift_left("HIGH_FIRE")
        self.car.shift_left("TP_SCALE_FIRE")

    def map_copies(self):
        self.menu(EDIT, 2, 0)
        self.wait("maps")
        self.screen.shot("map_copy_dialog")
        self.screen.keys("Return")
        self.gone("maps")
        self.car.copy_entry("HIGH_FUEL", "REG_FUEL")
        self.car.copy_entry("HIGH_FIRE", "REG_FIRE")
        self.menu(EDIT, 2, 1)
        self.wait("scales")
        self.screen.shot("scale_copy_dialog")
        self.screen.keys("Return")
        self.gone("scales")
        self.car.copy_entry("TP_SCALE_FUEL", "TP_SCALE_FIRE")
        self.car.copy_entry("RPM_SCALE_FUEL", "RPM_SCALE_FIRE")
        self.tab(4)
        self.screen.shot("copied_map")

    def address_editor(self):
        self.menu(EDIT, 3, 3)
        self.wait("address")
        for text in ("1100", "16", "16"):
            self.screen.keys("ctrl+a")
            self.screen.type(text)
            self.screen.keys("Tab")
        self.screen.shot("address_dialog")
        self.screen.keys("Return")
        self.screen.settle(0.5)
        self.wait("address")
        self.screen.keys("plus", "plus")
        self.screen.shot("address_editor")
        self.screen.keys("Return")
        self.gone("address")
        byte = self.car.image[0x1100]
        self.car.put_bytes(0x1100, bytes([min(255, byte + 2)]))

    def airflow(self):
        bnr32 = 2
        for table in [index for index in range(9) if index != bnr32] + [bnr32]:
            self.menu(EDIT, 3, 5, table)
        self.tab(5)
        with open(os.path.join(self.folder, "vqmap", "bnr32_vq_map.bin"), "rb") as file:
            self.car.put_bytes(self.car.entries["VQ_MAP"].address, file.read())
        self.screen.shot("airflow_map")

    def surface(self):
        self.tab(1)
        self.screen.keys("ctrl+g")
        self.wait_title("3D GRAPH EDIT")
        self.screen.shot("surface")
        self.screen.keys("Up", "Up", "Right", "plus", "plus", "plus")
        self.screen.shot("surface_edited")
        self.screen.keys("Return")
        self.screen.wait_until_gone("3D GRAPH EDIT")
        self.car.step("HIGH_FUEL", [(3, 2)], 3)

    def wait_title(self, title):
        self.screen.wait_for(title)
        self.screen.settle(0.3)

    def curve(self):
        title = "load scale|TPスケール"
        self.menu(EDIT, 4, 1)
        self.wait_title(title)
        self.screen.keys("Right", "Right", "plus", "plus")
        self.screen.shot("tp_curve")
        self.screen.keys("Return")
        self.screen.wait_until_gone(title)
        self.car.step("TP_SCALE_FUEL", [(1, 3)], 2)

    def read_outs(self):
        self.menu(EDIT, 5)
        self.wait("af")
        self.screen.shot("af_table")
        self.screen.keys("Escape")
        self.gone("af")
        self.screen.keys("ctrl+r", "ctrl+n")

    def parameters(self):
        self.tab(14)
        self.screen.shot("global_parameters")
        self.tab(6)
        self.screen.shot("additional_map")

    def settings(self):
        self.menu(SETUP, 1)
        self.dialog("engine", ["2498", "440", "6"], "engine_dialog")
        self.menu(SETUP, 2)
        self.wait("environment")
        self.screen.shot("environment_dialog")
        self.screen.keys("Return")
        self.gone("environment")
        self.menu(HELP, 0)
        self.wait("about")
        self.screen.shot("version_window")
        self.screen.keys("Return")
        self.gone("about")
        self.menu(SETUP, 0)
        name = f"demo_{self.language}.adr"
        self.choose_file("map", os.path.join(self.folder, "demo", name))

    def save(self):
        self.tab(1)
        self.screen.keys("ctrl+s")
        self.screen.settle(0.6)
        self.expect_file("edited.bin", self.car.image)

    def intel_hex(self):
        self.menu(FILE, 2, 1)
        self.choose_file("save_hex", self.saved("edited.hex"))
        self.screen.settle(0.6)
        with open(self.saved("edited.hex"), "rb") as file:
            self.expect("edited.hex", hex_bytes(file.read()), bytes(self.car.image))
        self.screen.keys("ctrl+h")
        self.choose_file("load_hex", self.saved("edited.hex"))
        self.screen.wait_for("edited.hex - ZELKOVA")

    def pairs(self):
        self.menu(FILE, 3)
        self.wait("pair")
        self.screen.shot("pair_dialog")
        self.press_in_dialog("save")
        self.choose_file("odd_save", self.saved("odd.bin"))
        self.choose_file("even_save", self.saved("even.bin"))
        self.gone("pair")
        filler = b"\xff" * (len(self.car.image) // 2)
        self.expect_file("odd.bin", self.car.image[0::2] + filler)
        self.expect_file("even.bin", self.car.image[1::2] + filler)
        self.menu(FILE, 3)
        self.wait("pair")
        self.press_in_dialog("load")
        self.choose_file("odd_load", self.saved("odd.bin"))
        self.choose_file("even_load", self.saved("even.bin"))
        self.gone("pair")
        self.screen.wait_for("even.bin - ZELKOVA")

    def comparison(self):
        self.menu(FILE, 4, 1)
        self.choose_file("compare_hex", self.saved("edited.hex"))
        self.menu(FILE, 4, 0)
        self.choose_file("compare", os.path.join(self.folder, "demo", "demo.bin"))
        self.screen.keys("ctrl+g")
        self.wait_title("3D GRAPH EDIT")
        window = self.show_comparison()
        self.screen.shot("surface_with_comparison")
        self.screen.click_in(window, 452, -104)
        self.screen.shot("surface_from_the_left_with_comparison")
        self.screen.click_in(window, 517, -108)
        self.screen.shot("surface_from_the_left")
        self.screen.keys("Escape")
        self.screen.wait_until_gone("3D GRAPH EDIT")

    def recent_file(self):
        self.screen.click(*MENU)
        self.screen.shot("recent_files")
        self.screen.keys("Escape", "Escape")
        self.menu(FILE, 6)
        self.screen.wait_for("edited.hex - ZELKOVA|edited.bin - ZELKOVA")

    def quit(self):
        self.tab(1)
        self.screen.click(*self.cell(2, 2))
        self.screen.keys("minus", "ctrl+q")
        self.wait("quit")
        self.screen.shot("unsaved_question")
        self.screen.keys("Escape")
        self.gone("quit")
        self.screen.keys("plus", "ctrl+q")
        if self.process.wait(20) != 0:
            raise SystemExit("the program ended with a failure")
        with open(os.path.join(self.folder, "error.log"), "rb") as file:
            self.expect("error.log", file.read(), b"")

    def run(self):
        for step in (self.start, self.load, self.edit_cells, self.edit_scales, self.save_as,
                     self.copy_and_paste, self.bulk_changes, self.shift, self.map_copies,
                     self.address_editor, self.airflow, self.surface, self.curve, self.read_outs,
                     self.parameters, self.save, self.intel_hex, self.pairs, self.comparison,
                     self.recent_file, self.settings, self.quit):
            step()
        print(f"{self.language}: {self.checked} comparisons hold, {self.screen.count} pictures")


def hex_bytes(text):
    data = bytearray()
    for line in text.decode("ascii").splitlines():
        if line[7:9] == "00":
            data += bytes.fromhex(line[9:-2])
    return bytes(data)


def main():
    portable, pictures, language = sys.argv[1:4]
    scale = float(sys.argv[4]) if len(sys.argv) > 4 else 1.0
    with tempfile.TemporaryDirectory() as place:
        folder = os.path.join(place, "zelkova")
        shutil.copytree(portable, folder)
        tour = Tour(folder, pictures, language, scale)
        try:
            tour.run()
        except BaseException:
            tour.screen.shot("stopped_here")
            raise
        finally:
            if tour.process.poll() is None:
                tour.process.kill()


if __name__ == "__main__":
    main()
