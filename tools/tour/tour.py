"""A tuner's tour through the real windows, with real keys and mouse: every row of the menu once, a
picture of each step, and every saved file compared byte for byte with what a plain restatement of
the commands gives.

Usage: tour.py PORTABLE_FOLDER DOOR_FOLDER PICTURES_FOLDER en|ja   (on the display in force)
"""

import os
import shutil
import sys
import tempfile

from car import Car, read_address_map
from door import Door, middle
from screen import Screen



def many(count):
    return count > 1


def one(count):
    return count == 1


# The grids of a panel are known by their form: the map by its rows and columns, the scale of load by
# its one row, the scale of engine speed by its one column.
MAP = {"rows": many, "columns": many}
LOAD_SCALE = {"rows": one, "columns": many}
SPEED_SCALE = {"rows": many, "columns": one}

TABS = {
    "high_fuel": ("Hi octane fuel map", "ﾊｲｵｸ燃料ﾏｯﾌﾟ"),
    "high_fire": ("Hi octane Ig-time map", "ﾊｲｵｸ点火ﾏｯﾌﾟ"),
    "regular_fuel": ("Low octane fuel map", "ﾚｷﾞｭﾗｰ燃料ﾏｯﾌﾟ"),
    "regular_fire": ("Low octane Ig-time map", "ﾚｷﾞｭﾗｰ点火ﾏｯﾌﾟ"),
    "airflow": ("VQ map", "VQ ﾏｯﾌﾟ"),
    "additional": ("Add.map 1", "Add ﾏｯﾌﾟ1"),
    "global": ("Global", "GLOBAL"),
}
BUTTONS = {
    "load": ("Load ODD/EVEN Files", "読み込み"),
    "save": ("Save ODD/EVEN Files", "書き出し"),
}
COMPARISON_BOX = "On/Off"
FROM_THE_LEFT = "☜"

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
        "too_long": "Conversion error",
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
        "too_long": "変換エラー",
    },
}


class Tour:
    def __init__(self, folder, door_folder, pictures, language):
        self.folder = folder
        self.door_folder = door_folder
        self.files = os.path.join(folder, "saved")
        os.makedirs(self.files)
        self.language = language
        self.screen = Screen(pictures, language)
        self.titles = TITLES[language]
        self.set_language()
        map_path = os.path.join(folder, "demo", f"demo_{language}.adr")
        with open(os.path.join(folder, "demo", "demo.bin"), "rb") as file:
            self.original = file.read()
        self.car = Car(self.original, read_address_map(map_path))
        self.checked = 0
        self.process = None

    def set_language(self):
        path = os.path.join(self.folder, "zelkova.ini")
        with open(path, "rb") as file:
            lines = file.read().split(b"\r\n")
        lines[1] = f"demo/demo_{self.language}.adr".encode()
        lines[16] = b" 1 " if self.language == "en" else b" 0 "
        with open(path, "wb") as file:
            file.write(b"\r\n".join(lines))

    # Gestures.

    def named(self, names):
        return names[0 if self.language == "en" else 1]

    def open(self):
        """Starts the program."""
        self.door = Door(os.path.join(self.folder, "zelkova"), self.door_folder)
        self.process = self.door.process
        self.screen.door = self.door

    def menu(self, *rows):
        """Rows by their names in the program, from the title in the menu bar on."""
        for row in rows:
            self.screen.click_on("row", object=row)

    def tab(self, name):
        self.screen.click_on("tab", name=self.named(TABS[name]))

    def cell(self, row, column, grid=MAP):
        return middle(self.door.cell(self.door.find("grid", **grid), row, column))

    def select(self, rows, columns):
        self.screen.drag(self.cell(rows[0], columns[0]), self.cell(rows[-1], columns[-1]))

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
        self.screen.click(place, times=2)
        self.wait("ask")
        self.screen.keys("ctrl+a")
        self.screen.type(text)

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
        self.wait("pair")
        self.screen.click_on("QPushButton", text=self.named(BUTTONS[name]))

    # Steps.

    def start(self):
        self.open()
        self.door.wait("the splash window", lambda seen: seen["window"] == "frmSplash")
        self.screen.shot("splash")
        self.screen.click_on("QWidget", object="frmSplash")
        self.screen.wait_for("^ZELKOVA$")
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
        self.enter(self.cell(1, 16, LOAD_SCALE), "130")
        self.screen.keys("Return")
        self.gone("ask")
        self.car.put("TP_SCALE_FUEL", 1, 16, 130)
        self.enter(self.cell(16, 1, SPEED_SCALE), "8234")
        self.screen.keys("Return")
        self.gone("ask")
        self.car.put("RPM_SCALE_FUEL", 1, 16, 164)
        self.screen.shot("scales")

    def save_as(self):
        self.menu("file_load", "any_anme_save", "write_bin_file")
        self.choose_file("save", self.saved("edited.bin"), "save_dialog")
        self.screen.wait_for("edited.bin - ZELKOVA")
        self.expect_file("edited.bin", self.car.image)

    def copy_and_paste(self):
        rows, columns = range(6, 9), range(10, 15)
        self.select(rows, columns)
        self.screen.keys("ctrl+c")
        self.tab("regular_fuel")
        self.select(rows, columns)
        self.screen.keys("ctrl+v")
        self.screen.shot("pasted_block")
        self.car.copy_cells("HIGH_FUEL", "REG_FUEL", self.car.block(rows, columns))
        self.tab("high_fuel")

    def bulk_changes(self):
        rows, columns = range(11, 15), range(1, 7)
        cells = self.car.block(rows, columns)
        self.select(rows, columns)
        self.menu("edit_0", "DDDEEDS", "add_dec")
        self.dialog("add", ["12", "110"], "add_dialog")
        self.car.add("HIGH_FUEL", cells, 110, 12)
        self.menu("edit_0", "DDDEEDS", "kakeru")
        self.dialog("multiply", ["1.5", "110"], "multiply_dialog")
        self.car.multiply("HIGH_FUEL", cells, 110, 1.5)
        rows, columns = range(8, 14), range(5, 12)
        self.select(rows, columns)
        self.screen.shot("before_smoothing")
        self.menu("edit_0", "DDDEEDS", "smooth")
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
        self.tab("high_fire")
        self.screen.shot("ignition_map")
        self.menu("edit_0", "DDDEEDS", "DT_SFT")
        self.wait("shift")
        self.screen.shot("shift_dialog")
        self.screen.keys("Return")
        self.gone("shift")
        self.screen.shot("shifted_with_scale")
        self.car.shift_left("HIGH_FIRE")
        self.car.shift_left("TP_SCALE_FIRE")

    def map_copies(self):
        self.menu("edit_0", "dt_cpy", "F_F")
        self.wait("maps")
        self.screen.shot("map_copy_dialog")
        self.screen.keys("Return")
        self.gone("maps")
        self.car.copy_entry("HIGH_FUEL", "REG_FUEL")
        self.car.copy_entry("HIGH_FIRE", "REG_FIRE")
        self.menu("edit_0", "dt_cpy", "T_R")
        self.wait("scales")
        self.screen.shot("scale_copy_dialog")
        self.screen.keys("Return")
        self.gone("scales")
        self.car.copy_entry("TP_SCALE_FUEL", "TP_SCALE_FIRE")
        self.car.copy_entry("RPM_SCALE_FUEL", "RPM_SCALE_FIRE")
        self.tab("regular_fire")
        self.screen.shot("copied_map")

    def address_editor(self):
        self.menu("edit_0", "DDDEEDS", "ADR_EDIT")
        self.wait("address")
        for text in ("1100", "16", "16"):
            self.screen.keys("ctrl+a")
            self.screen.type(text)
            self.screen.keys("Tab")
        self.screen.shot("address_dialog")
        self.screen.keys("Return")
        self.door.find("grid", **MAP)
        self.screen.keys("plus", "plus")
        self.screen.shot("address_editor")
        self.screen.keys("Return")
        self.gone("address")
        byte = self.car.image[0x1100]
        self.car.put_bytes(0x1100, bytes([min(255, byte + 2)]))

    def airflow(self):
        for table in ("use_z32_vq", "use_hcr32_vq", "user_ecr33_vq", "use_y32_vq", "use_s13_vq",
                      "use_ps13_vq", "use_s14_vq", "use_s15_vq", "use_bnr32_vq"):
            self.menu("edit_0", "DDDEEDS", "vq_chan", table)
            if table == "use_s13_vq":  # shorter than the demo car's curve
                self.wait("too_long")
                self.screen.keys("Return")
                self.gone("too_long")
        self.tab("airflow")
        with open(os.path.join(self.folder, "vqmap", "bnr32_vq_map.bin"), "rb") as file:
            self.car.put_bytes(self.car.entries["VQ_MAP"].address, file.read())
        self.screen.shot("airflow_map")

    def surface(self):
        self.tab("high_fuel")
        self.screen.keys("ctrl+g")
        self.screen.wait_for("3D GRAPH EDIT")
        self.screen.shot("surface")
        self.screen.keys("Up", "Up", "Right", "plus", "plus", "plus")
        self.screen.shot("surface_edited")
        self.screen.keys("Return")
        self.screen.wait_until_gone("3D GRAPH EDIT")
        self.car.step("HIGH_FUEL", [(3, 2)], 3)

    def curve(self):
        title = "load scale|TPスケール"
        self.menu("edit_0", "G_EDIT_RR", "TP_2D")
        self.screen.wait_for(title)
        self.screen.keys("Right", "Right", "plus", "plus")
        self.screen.shot("tp_curve")
        self.screen.keys("Return")
        self.screen.wait_until_gone(title)
        self.car.step("TP_SCALE_FUEL", [(1, 3)], 2)

    def read_outs(self):
        self.menu("edit_0", "AF_DISP_FORM")
        self.wait("af")
        self.screen.shot("af_table")
        self.screen.keys("Escape")
        self.gone("af")
        self.screen.keys("ctrl+r", "ctrl+n")

    def parameters(self):
        self.tab("global")
        self.screen.shot("global_parameters")
        self.tab("additional")
        self.screen.shot("additional_map")

    def settings(self):
        self.menu("S___", "set_spl")
        self.dialog("engine", ["2498", "440", "6"], "engine_dialog")
        self.menu("S___", "SET_DEFAULT_FOLDER")
        self.wait("environment")
        self.screen.shot("environment_dialog")
        self.screen.keys("Return")
        self.gone("environment")
        self.menu("HLP777", "ver_displ")
        self.wait("about")
        self.screen.shot("version_window")
        self.screen.keys("Return")
        self.gone("about")
        self.menu("S___", "load_map_addr")
        name = f"demo_{self.language}.adr"
        self.choose_file("map", os.path.join(self.folder, "demo", name))

    def save(self):
        self.tab("high_fuel")
        self.screen.keys("ctrl+s")
        self.expect_file("edited.bin", self.car.image)

    def intel_hex(self):
        self.menu("file_load", "any_anme_save", "ANY_NAME_SAVE_IntelHEX")
        self.choose_file("save_hex", self.saved("edited.hex"))
        with open(self.saved("edited.hex"), "rb") as file:
            self.expect("edited.hex", hex_bytes(file.read()), bytes(self.car.image))
        self.screen.keys("ctrl+h")
        self.choose_file("load_hex", self.saved("edited.hex"))
        self.screen.wait_for("edited.hex - ZELKOVA")

    def pairs(self):
        self.menu("file_load", "odd_even_file")
        self.wait("pair")
        self.screen.shot("pair_dialog")
        self.press_in_dialog("save")
        self.choose_file("odd_save", self.saved("odd.bin"))
        self.choose_file("even_save", self.saved("even.bin"))
        self.gone("pair")
        filler = b"\xff" * (len(self.car.image) // 2)
        self.expect_file("odd.bin", self.car.image[0::2] + filler)
        self.expect_file("even.bin", self.car.image[1::2] + filler)
        self.menu("file_load", "odd_even_file")
        self.wait("pair")
        self.press_in_dialog("load")
        self.choose_file("odd_load", self.saved("odd.bin"))
        self.choose_file("even_load", self.saved("even.bin"))
        self.gone("pair")
        self.screen.wait_for("even.bin - ZELKOVA")

    def comparison(self):
        self.menu("file_load", "Norika", "comp_intelHex")
        self.choose_file("compare_hex", self.saved("edited.hex"))
        self.menu("file_load", "Norika", "comp_bin")
        self.choose_file("compare", os.path.join(self.folder, "demo", "demo.bin"))
        self.screen.keys("ctrl+g")
        self.screen.wait_for("3D GRAPH EDIT")
        self.screen.click_on("QCheckBox", text=COMPARISON_BOX)
        self.screen.shot("surface_with_comparison")
        self.screen.click_on("QRadioButton", text=FROM_THE_LEFT)
        self.screen.shot("surface_from_the_left_with_comparison")
        self.screen.click_on("QCheckBox", text=COMPARISON_BOX)
        self.screen.shot("surface_from_the_left")
        self.screen.keys("Escape")
        self.screen.wait_until_gone("3D GRAPH EDIT")

    def recent_file(self):
        self.menu("file_load")
        self.screen.shot("recent_files")
        self.screen.keys("Escape")
        self.menu("file_load", "mnuRecentFile1")
        self.screen.wait_for("edited.hex - ZELKOVA|edited.bin - ZELKOVA")

    def quit(self):
        self.tab("high_fuel")
        self.screen.click(self.cell(2, 2))
        self.screen.keys("minus", "ctrl+q")
        self.wait("quit")
        self.screen.shot("unsaved_question")
        self.screen.keys("Escape")
        self.gone("quit")
        self.screen.keys("plus")
        self.screen.uncounted_keys("ctrl+q")
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
    portable, door_folder, pictures, language = sys.argv[1:]
    with tempfile.TemporaryDirectory() as place:
        folder = os.path.join(place, "zelkova")
        shutil.copytree(portable, folder)
        tour = Tour(folder, door_folder, pictures, language)
        try:
            tour.run()
        except BaseException:
            tour.screen.shot("stopped_here")
            raise
        finally:
            if tour.process and tour.process.poll() is None:
                tour.process.kill()


if __name__ == "__main__":
    main()
