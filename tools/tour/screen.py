"""Real keys, real mouse and pictures on the display in force, by xdotool and ImageMagick."""

import subprocess
import time


def run(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


def find_windows(pattern, by="--name"):
    words = ["xdotool", "search", "--onlyvisible", by, pattern]
    return subprocess.run(words, capture_output=True, text=True).stdout.split()


def geometry(window):
    """X, Y, WIDTH and HEIGHT of a window's inside, in pixels of the screen."""
    lines = run("xwininfo", "-id", window).splitlines()
    values = dict(line.strip().split(": ", 1) for line in lines if ": " in line)
    return {"X": int(values["Absolute upper-left X"]), "Y": int(values["Absolute upper-left Y"]),
            "WIDTH": int(values["Width"]), "HEIGHT": int(values["Height"])}


class Screen:
    """Places are pixels from the main window's upper left corner."""

    def __init__(self, pictures, language, scale=1.0):
        self.pictures = pictures
        self.language = language
        self.scale = scale
        self.origin = (0, 0)
        self.count = 0

    def wait_for(self, pattern, seconds=20, by="--name"):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            windows = find_windows(pattern, by)
            if windows:
                return windows[-1]
            time.sleep(0.05)
        self.shot("lost")
        raise SystemExit(f"no window {pattern!r} appeared")

    def wait_until_gone(self, pattern, seconds=20):
        end = time.monotonic() + seconds
        while find_windows(pattern):
            if time.monotonic() > end:
                self.shot("lost")
                raise SystemExit(f"the window {pattern!r} stays")
            time.sleep(0.05)

    def place_main_window(self, pattern, x, y):
        window = self.wait_for(pattern)
        run("xdotool", "windowmove", "--sync", window, str(x), str(y))
        self.settle(0.3)
        place = geometry(window)
        self.origin = (place["X"], place["Y"])

    def click_in(self, window, x, y):
        """A place in another window; a negative y counts from its lower edge."""
        place = geometry(window)
        down = round(y * self.scale) + (place["HEIGHT"] if y < 0 else 0)
        run("xdotool", "mousemove", str(place["X"] + round(x * self.scale)),
            str(place["Y"] + down), "click", "1")
        self.settle()

    def settle(self, seconds=0.12):
        time.sleep(seconds)

    def keys(self, *names):
        for name in names:
            run("xdotool", "key", "--clearmodifiers", name)
            self.settle(0.04)
        self.settle()

    def type(self, text):
        run("xdotool", "type", "--delay", "12", text)
        self.settle()

    def point(self, x, y):
        across = round(self.origin[0] + x * self.scale)
        down = round(self.origin[1] + y * self.scale)
        run("xdotool", "mousemove", str(across), str(down))
        self.settle(0.05)

    def click(self, x, y, button=1, times=1):
        self.point(x, y)
        run("xdotool", "click", "--repeat", str(times), "--delay", "60", str(button))
        self.settle()

    def drag(self, start, end):
        self.point(*start)
        run("xdotool", "mousedown", "1")
        middle = ((start[0] + end[0]) / 2, (start[1] + end[1]) / 2)
        self.point(*middle)
        self.point(*end)
        run("xdotool", "mouseup", "1")
        self.settle()

    def shot(self, name):
        self.settle(0.25)
        self.count += 1
        path = f"{self.pictures}/{self.count:02}_{name}_{self.language}.png"
        run("import", "-window", "root", path)
        return path
