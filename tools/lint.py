"""Asks clangd what it thinks of each source and header: the checks of .clang-tidy and the includes
of the project's own headers that nothing needs. Prints what it finds and fails if it finds any.

Usage: lint.py BUILD_FOLDER FILE...   (the build folder holds compile_commands.json)
"""

import json
import os
import subprocess
import sys
import time

AT_ONCE = 2 * (os.cpu_count() or 1)
SECONDS_FOR_ALL = 1200


class Clangd:
    def __init__(self, build):
        command = ["clangd-14", f"--compile-commands-dir={build}", "--clang-tidy", "--log=error",
                   "--background-index=false", f"-j={os.cpu_count() or 1}"]
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.send("initialize", {"processId": None, "rootUri": None, "capabilities": {}}, id=1)
        self.send("initialized", {})

    def send(self, method, parameters, **rest):
        message = {"jsonrpc": "2.0", "method": method, "params": parameters, **rest}
        body = json.dumps(message).encode()
        self.process.stdin.write(b"Content-Length: %d\r\n\r\n" % len(body) + body)
        self.process.stdin.flush()

    def receive(self):
        size = 0
        while (line := self.process.stdout.readline()).strip():
            name, value = line.split(b":")
            if name.lower() == b"content-length":
                size = int(value)
        if not line:
            raise SystemExit("clangd ended before it had told all")
        return json.loads(self.process.stdout.read(size))

    def open(self, path):
        with open(path, encoding="utf-8") as file:
            document = {"uri": uri(path), "languageId": "cpp", "version": 1, "text": file.read()}
        self.send("textDocument/didOpen", {"textDocument": document})

    def close(self, path):
        self.send("textDocument/didClose", {"textDocument": {"uri": uri(path)}})


def uri(path):
    return "file://" + os.path.abspath(path)


def findings(path, diagnostics):
    """A source needs its own header even where it uses nothing of it."""
    own = os.path.basename(os.path.splitext(path)[0]) + ".h is not used"
    for each in diagnostics:
        if each.get("code") == "unused-includes" and own in each["message"]:
            continue
        line = each["range"]["start"]["line"] + 1
        yield f"{path}:{line}: {each['message'].splitlines()[0]} [{each.get('code', '')}]"


def main():
    build, waiting = sys.argv[1], sys.argv[:1:-1]
    clangd, open_files, found = Clangd(build), {}, []
    end = time.monotonic() + SECONDS_FOR_ALL
    while waiting or open_files:
        while waiting and len(open_files) < AT_ONCE:
            path = waiting.pop()
            open_files[uri(path)] = path
            clangd.open(path)
        message = clangd.receive()
        if message.get("method") == "textDocument/publishDiagnostics":
            path = open_files.pop(message["params"]["uri"], None)
            if path:
                found += findings(path, message["params"]["diagnostics"])
                clangd.close(path)
        if time.monotonic() > end:
            raise SystemExit(f"clangd says nothing of {list(open_files.values())}")
    clangd.process.stdin.close()
    clangd.process.kill()
    clangd.process.wait()
    print("\n".join(sorted(found)))
    print(f"{len(sys.argv) - 2} files, {len(found)} findings")
    raise SystemExit(1 if found else 0)


main()
