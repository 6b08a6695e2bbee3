"""Pictures of single windows for the manual, in both languages, with the tour's gestures.

Usage: manual_pictures.py PORTABLE_FOLDER PICTURES_FOLDER   (on the display in force)
"""

import os
import shutil
import subprocess
import sys
import tempfile

from screen import run
from tour import EDIT, FILE, SETUP, Tour

MAP_SIZE = (900, 500)
GLOBAL_SIZE = (1180, 620)
COMPARISON_BOX = (517, -108)
SURFACE = "3D GRAPH EDIT"
CURVE = "load scale|TPスケール"


class Photographer(Tour):
    def take(self, window, name):
        """A window with its frame, in few colours."""
        self.screen.settle(0.4)
        path = os.path.join(self.screen.pictures, f"{name}_{self.language}.png")
        run("xdotool", "mousemove", "1900", "1430")
        self.screen.settle(0.3)
        run("import", "-frame", "-window", window, path)
        run("convert", path, "-strip", "-dither", "none", "-colors", "200",
            "-define", "png:compression-level=9", f"PNG8:{path}")

    def start(self):
        program = os.path.join(self.folder, "zelkova")
        self.process = subprocess.Popen([program], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        self.screen.settle(2)
        self.screen.keys("space")
        self.screen.place_main_window("^ZELKOVA$", 60, 60)
        self.screen.keys("ctrl+o")
        self.choose_file("load", os.path.join(self.folder, "demo", "demo.bin"))
        self.main = self.screen.wait_for("demo.bin - ZELKOVA")

    def take_panels(self):
        self.resize(MAP_SIZE)
        self.select(range(2, 6), range(9, 14))
        self.take(self.main, "form1")
        self.tab(5)
        self.take(self.main, "airflow")
        self.resize(GLOBAL_SIZE)
        self.tab(14)
        self.take(self.main, "global")
        self.tab(1)

    def resize(self, size):
        run("xdotool", "windowsize", "--sync", self.main, *map(str, size))
        self.screen.settle(0.5)

    def take_graphs(self):
        self.menu(FILE, 4, 0)
        self.choose_file("compare", self.comparison_image())
        self.screen.keys("ctrl+g")
        window = self.screen.wait_for(SURFACE)
        self.screen.settle(6)  # the hint goes by itself
        self.screen.click_in(window, *COMPARISON_BOX)
        self.screen.click_in(window, 300, 200)
        self.screen.keys(*["Up"] * 7, *["Right"] * 8)
        self.take(window, "graph3d")
        self.screen.keys("Escape")
        self.screen.wait_until_gone(SURFACE)
        self.menu(EDIT, 4, 1)
        window = self.screen.wait_for(CURVE)
        self.screen.settle()
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

    def take_dialog(self, name, picture, *path, leave="Escape"):
        self.menu(*path)
        self.take(self.wait(name), picture)
        self.screen.keys(leave)
        self.gone(name)

    def take_address_editor(self):
        self.menu(EDIT, 3, 3)
        self.wait("address")
        for text in ("1000", "16", "16"):
            self.screen.keys("ctrl+a")
            self.screen.type(text)
            self.screen.keys("Tab")
        self.screen.keys("Return")
        self.screen.settle(1)
        self.take(self.wait("address"), "address_editor")
        self.screen.keys("Escape")
        self.gone("address")

    def run(self):
        self.start()
        self.take_panels()
        self.take_graphs()
        self.take_address_editor()
        self.take_dialog("af", "af_table", EDIT, 5)
        self.take_dialog("engine", "engine", SETUP, 1)
        self.take_dialog("environment", "environment", SETUP, 2)
        self.take_dialog("pair", "oddeven", FILE, 3, leave="alt+F4")
        self.screen.keys("ctrl+q")
        self.process.wait(20)


def main():
    portable, pictures = sys.argv[1:3]
    for language in ("en", "ja"):
        with tempfile.TemporaryDirectory() as place:
            folder = os.path.join(place, "zelkova")
            shutil.copytree(portable, folder)
            photographer = Photographer(folder, pictures, language, 1.0)
            try:
                photographer.run()
            finally:
                if photographer.process.poll() is None:
                    photographer.process.kill()


if __name__ == "__main__":
    main()
