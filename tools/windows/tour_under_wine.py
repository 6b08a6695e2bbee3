"""The tour through the Windows program, under wine on the display in force.

Usage: tour_under_wine.py PORTABLE_FOLDER DOOR_FOLDER PICTURES_FOLDER en|ja   (WINEPREFIX in force)
"""

import os
import re
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tour"))
import tour  # noqa: E402
from door import Door  # noqa: E402
from screen import run  # noqa: E402

WINE = "/usr/lib/wine/wine64"
UNTOLD = 0.5  # seconds without an active window


def windows_path(path):
    return "Z:" + path.replace("/", "\\")


class DoorUnderWine(Door):
    """wine doesn't tell a window that it has the focus again when a dialog went and a long command
    followed; getting it from the display's ground it hears of it."""

    def __init__(self, command, folder):
        super().__init__(command, folder)
        self.active_at = time.monotonic()

    def look(self):
        seen = super().look()
        now = time.monotonic()
        if seen["native"]:
            self.active_at = now
        elif now - self.active_at > UNTOLD:
            self.give_focus_anew()
            self.active_at = now
        return seen

    @staticmethod
    def give_focus_anew():
        found = subprocess.run(["xdotool", "getactivewindow"], capture_output=True, text=True)
        if found.returncode != 0:
            return
        ground = re.search("Window id: (\\S+)", run("xwininfo", "-root")).group(1)
        for window in (ground, found.stdout.strip()):  # which may be gone by now
            subprocess.run(["xdotool", "windowfocus", window], capture_output=True)
            time.sleep(0.2)


def open_program(folder, door_folder):
    """Of the toolkit's variables wine hands on only those that begin with its own name."""
    os.environ["WINEQT_PLUGIN_PATH"] = windows_path(door_folder)
    os.environ["WINEQT_QPA_GENERIC_PLUGINS"] = "zelkova_tour_door"
    return DoorUnderWine([WINE, os.path.join(folder, "zelkova.exe")], windows_path(door_folder))


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
