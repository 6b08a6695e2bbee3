"""The tour through the Windows program, under wine on the display in force.

Usage: tour_under_wine.py PORTABLE_FOLDER DOOR_FOLDER PICTURES_FOLDER en|ja   (WINEPREFIX in force)
"""

import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tour"))
import tour  # noqa: E402
from door import Door  # noqa: E402

WINE = "/usr/lib/wine/wine64"


def windows_path(path):
    return "Z:" + path.replace("/", "\\")


def open_program(folder, door_folder):
    """Of the toolkit's variables wine hands on only those that begin with its own name."""
    os.environ["WINEQT_PLUGIN_PATH"] = windows_path(door_folder)
    os.environ["WINEQT_QPA_GENERIC_PLUGINS"] = "zelkova_tour_door"
    return Door([WINE, os.path.join(folder, "zelkova.exe")], windows_path(door_folder))


class TourUnderWine(tour.Tour):
    def open(self):
        self.door = open_program(self.folder, self.door_folder)
        self.process = self.door.process
        self.screen.door = self.door

    def choose_file(self, name, path, picture=None):
        super().choose_file(name, "Z:" + path, picture)


def main():
    walk = TourUnderWine(*sys.argv[1:])
    try:
        walk.run()
    except BaseException:
        walk.screen.shot("stopped_here")
        raise
    finally:
        if walk.process and walk.process.poll() is None:
            walk.process.kill()


if __name__ == "__main__":
    main()
