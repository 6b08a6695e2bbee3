"""What stands where in the running program, asked through the door that is built for the tour: a
plugin that the toolkit loads because the environment names it. It only looks; see door/door.cpp."""

import json
import os
import select
import subprocess
import time

PATIENCE = 30  # seconds; an idle machine answers within milliseconds


class Door:
    """Starts a program with the door in FOLDER open."""

    def __init__(self, command, folder):
        environment = dict(os.environ, QT_PLUGIN_PATH=folder, ZELKOVA_OWN_DIALOGS="1",
                           QT_QPA_GENERIC_PLUGINS="zelkova_tour_door")
        self.process = subprocess.Popen(command, env=environment, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.unread = b""

    def ask(self, **question):
        self.process.stdin.write(json.dumps(question).encode() + b"\n")
        self.process.stdin.flush()
        end = time.monotonic() + PATIENCE
        while b"\n" not in self.unread:
            if not select.select([self.process.stdout], [], [], max(0, end - time.monotonic()))[0]:
                raise SystemExit(f"the program does not answer: {question}")
            part = os.read(self.process.stdout.fileno(), 65536)
            if not part:
                raise SystemExit(f"the program ended and was asked: {question}")
            self.unread += part
        line, self.unread = self.unread.split(b"\n", 1)
        return json.loads(line)

    def look(self):
        return self.ask(ask="look")

    def wait(self, what, condition):
        """The first look for which the condition holds; what it gave comes second."""
        end = time.monotonic() + PATIENCE
        while True:
            seen = self.look()
            result = condition(seen)
            if result:
                return seen, result
            if time.monotonic() > end:
                in_sight = [(each["kind"], each["name"], each["object"])
                            for each in seen.pop("found") if each["name"] or each["object"]]
                raise SystemExit(f"waited in vain for {what}; there is {seen} with {in_sight}")
            time.sleep(0.01)

    def find(self, kind, **properties):
        """The one thing in sight of this kind whose properties are these."""
        def the_one(seen):
            found = [each for each in seen["found"] if each["kind"] == kind
                     and all(fits(each.get(key), value) for key, value in properties.items())]
            return found[0] if len(found) == 1 else None

        return self.wait(f"one {kind} with {properties}", the_one)[1]

    def cell(self, grid, row, column):
        """Data cells count from 1."""
        answer = self.ask(ask="cell", grid=grid["id"], row=row - 1, column=column - 1)
        if not answer:
            raise SystemExit(f"cell {row}, {column} of {grid} is not in sight")
        return answer


def fits(value, wanted):
    return wanted(value) if callable(wanted) else value == wanted


def middle(thing):
    left, top, width, height = thing["place"]
    return left + width // 2, top + height // 2
