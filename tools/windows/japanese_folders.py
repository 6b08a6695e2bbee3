"""Loading, editing, saving, saving under a name with characters of three scripts, and the exit guard,
all in Japanese folders, under wine on the display in force.

Usage: japanese_folders.py PORTABLE_FOLDER DOOR_FOLDER PICTURES_FOLDER SCRATCH_FOLDER
"""

import os
import shutil
import subprocess
import sys
import time

from tour_under_wine import open_program, windows_path
from door import middle
from screen import Screen
from tour import MAP

FIRST_BYTE = 0x1000  # of the demo car's first map
NEW_VALUE = 77
LOADED = "日本車 ソ表.bin"
SAVE_AS = ("file_load", "any_anme_save", "write_bin_file")  # rows of the menu
SAVED = "保存 ελλ🚗é.bin"


class Walk:
    def __init__(self, portable, door_folder, pictures, scratch):
        self.door_folder = door_folder
        self.data = os.path.join(scratch, "試験 フォルダ", "データ 表示")
        self.folder = os.path.join(scratch, "試験 フォルダ", "車 zelkova")
        self.screen = Screen(pictures, "folders")
        self.clipboards = []
        os.makedirs(self.data)
        shutil.copytree(portable, self.folder)
        shutil.copy(os.path.join(self.folder, "demo", "demo.bin"), os.path.join(self.data, LOADED))
        shutil.copy(os.path.join(self.folder, "demo", "demo_ja.adr"),
                    os.path.join(self.data, "地図 ソ.adr"))
        self.set_paths()
        self.process = None

    def set_paths(self):
        path = os.path.join(self.folder, "zelkova.ini")
        with open(path, "rb") as file:
            lines = file.read().split(b"\r\n")
        lines[1] = (windows_path(self.data) + "\\地図 ソ.adr").encode("cp932")
        lines[6] = windows_path(self.data).encode("cp932")
        lines[16] = b" 0 "
        with open(path, "wb") as file:
            file.write(b"\r\n".join(lines))

    def paste(self, text):
        """Keys can't type these characters."""
        clip = subprocess.Popen(["xclip", "-selection", "clipboard", "-quiet"],
                                stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)
        clip.stdin.write(text.encode())
        clip.stdin.close()
        self.clipboards.append(clip)
        time.sleep(0.4)
        self.screen.keys("ctrl+a", "ctrl+v")
        self.screen.settle(0.6)

    def answer(self, title, name):
        self.screen.wait_for(title)
        self.paste(name)
        self.screen.shot("named")
        self.screen.keys("Return")
        self.screen.wait_until_gone(title)

    def quit(self, key):
        self.screen.door.wait("the focus", lambda seen: seen["native"])
        self.screen.uncounted_keys(key)

    def refuse_to_quit(self, key):
        self.quit(key)
        self.screen.wait_for("保存確認")
        self.screen.keys("Escape")
        self.screen.wait_until_gone("保存確認")

    def expect(self, name, wanted):
        with open(os.path.join(self.data, name), "rb") as file:
            if file.read() != wanted:
                raise SystemExit(f"{name} differs from what was to be saved")

    def run(self):
        screen = self.screen
        door = screen.door = open_program(self.folder, self.door_folder)
        self.process = door.process
        door.wait("the splash window", lambda seen: seen["window"] == "frmSplash")
        screen.click_on("QWidget", object="frmSplash")
        screen.wait_for("^ZELKOVA$")
        screen.keys("ctrl+o")
        self.answer("BIN Image 読み込み", LOADED)
        screen.wait_for(LOADED + " - ZELKOVA")
        screen.click(middle(door.cell(door.find("grid", **MAP), 1, 1)), times=2)
        screen.wait_for("データ変更")
        screen.keys("ctrl+a")
        screen.type(str(NEW_VALUE))
        screen.keys("Return")
        screen.wait_until_gone("データ変更")
        self.refuse_to_quit("ctrl+q")
        self.refuse_to_quit("alt+F4")
        with open(os.path.join(self.folder, "demo", "demo.bin"), "rb") as file:
            wanted = bytearray(file.read())
        wanted[FIRST_BYTE] = NEW_VALUE
        screen.keys("ctrl+s")
        screen.settle(1.0)
        self.expect(LOADED, bytes(wanted))
        for row in SAVE_AS:
            screen.click_on("row", object=row)
        self.answer("BIN Image 書き込み", windows_path(os.path.join(self.data, SAVED)))
        screen.settle(1.0)
        screen.shot("saved")
        self.expect(SAVED, bytes(wanted))
        self.quit("ctrl+q")
        if self.process.wait(20) != 0:
            raise SystemExit("the program ended with an error")
        print("Japanese folders: all saved files equal")

    def end(self):
        if self.process and self.process.poll() is None:
            self.screen.shot("stopped_here")
            self.process.kill()
        for clip in self.clipboards:
            clip.kill()


walk = Walk(*sys.argv[1:])
try:
    walk.run()
finally:
    walk.end()
