"""The tour through the Windows program, under wine on the display in force.

Usage: tour_under_wine.py PORTABLE_FOLDER PICTURES_FOLDER en|ja   (WINEPREFIX in force)
"""

import os
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tour"))
import tour  # noqa: E402
from screen import find_windows, geometry  # noqa: E402

WINE = "/usr/lib/wine/wine64"
SMALLEST_MAIN_WINDOW = 900  # pixels


def start(folder):
    program = os.path.join(folder, "zelkova.exe")
    return subprocess.Popen([WINE, program], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)


def pass_splash(screen):
    """The splash window carries the same title here, so the main window is known by its size. It
    stays where the program centred it."""
    splash = screen.wait_for("zelkova", by="--class", seconds=60)
    screen.settle(1.0)
    screen.shot("splash")
    screen.click_in(splash, 320, 180)
    for _ in range(200):
        places = [geometry(window) for window in find_windows("^ZELKOVA$")]
        main = [place for place in places if place["WIDTH"] > SMALLEST_MAIN_WINDOW]
        if main and len(places) == 1:
            break
        screen.settle(0.1)
    else:
        raise SystemExit("the main window did not appear")
    screen.settle(0.5)
    screen.origin = (main[0]["X"], main[0]["Y"])


class TourUnderWine(tour.Tour):
    def start(self):
        self.process = start(self.folder)
        pass_splash(self.screen)
        self.screen.shot("empty")

    def choose_file(self, name, path, picture=None):
        super().choose_file(name, "Z:" + path, picture)


def main():
    walk = TourUnderWine(sys.argv[1], sys.argv[2], sys.argv[3], 1.0)
    try:
        walk.run()
    except BaseException:
        walk.screen.shot("stopped_here")
        raise
    finally:
        if walk.process.poll() is None:
            walk.process.kill()


if __name__ == "__main__":
    main()
