"""Real keys, real mouse and pictures on the display in force, by xdotool and ImageMagick. Each key
and each press must come in once, which the program's door tells."""

import re
import subprocess
import time

from door import middle


def run(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


class Screen:
    def __init__(self, pictures, language):
        self.pictures = pictures
        self.language = language
        self.door = None
        self.count = 0

    # Windows.

    def wait_for(self, title):
        """Waits until the active window's title fits the pattern; gives what is seen then."""
        return self.door.wait(f"the window {title!r}",
                              lambda seen: re.search(title, seen["title"]))[0]

    def wait_until_gone(self, title):
        """Waits until another window is active."""
        self.door.wait(f"the end of {title!r}",
                       lambda seen: seen["title"] and not re.search(title, seen["title"]))

    # Gestures.

    def send(self, counter, number, *words):
        """Runs xdotool: so many keys or presses come in, none is lost and none comes twice."""
        before = self.door.wait("an active window", lambda seen: seen["native"])[0][counter]
        run("xdotool", *words)
        after = self.door.wait(f"{number} {counter} by {words}",
                               lambda seen: seen[counter] - before >= number)[0][counter]
        if after - before != number:
            raise SystemExit(f"{after - before} {counter} came in by {words}")

    def keys(self, *names):
        self.send("keys", len(names), "key", "--clearmodifiers", "--delay", "2", *names)

    def uncounted_keys(self, *names):
        """Keys that the window manager takes, or behind which nobody is left to count them."""
        run("xdotool", "key", "--clearmodifiers", *names)

    def type(self, text):
        self.send("keys", len(text), "type", "--delay", "2", text)

    def click(self, place, times=1):
        self.send("presses", times, "mousemove", *map(str, place),
                  "click", "--repeat", str(times), "--delay", "20", "1")

    def drag(self, start, end):
        halfway = [(a + b) // 2 for a, b in zip(start, end)]
        self.send("presses", 1, "mousemove", *map(str, start), "mousedown", "1",
                  "mousemove", *map(str, halfway), "mousemove", *map(str, end), "mouseup", "1")

    def click_on(self, kind, **properties):
        self.click(middle(self.door.find(kind, **properties)))

    # Pictures.

    def settle(self, seconds=0.15):
        """What is drawn after the last event needs a moment to come to the display."""
        time.sleep(seconds)

    def shot(self, name):
        self.settle()
        self.count += 1
        path = f"{self.pictures}/{self.count:02}_{name}_{self.language}.png"
        run("import", "-window", "root", path)
        return path
