#!/usr/bin/env python3
"""The folder graph of the sources: which folder includes which.

Prints one line per folder with the folders its shipped code includes
(tests -- *_test.cc and *_for_test.h -- are listed apart), then checks
the layering: each include of a shipped file must go to a folder its own
folder may use, and the shipped graph must have no cycle. Exits 1, naming
the includes, when either fails.
Usage: folder_graph.py [source root]   (default: the checkout)
"""
import os
import re
import sys

# What each folder's shipped code may include besides itself. The
# application looks down: cli -> taskman -> app -> controls, results,
# store -> books -> platform; the terminal, speech and Braille present for
# the controls (with readings from reading/), and the task manager writes
# its events to the terminal's transcript and takes the Braille display's
# keys and keyboard. The engine stands alone (command -> search -> text -> engine)
# and is called by results' engine books, tools and cli; the tools take
# their UTF-8 and Shift-JIS conversions from platform.
ENGINE = {"command", "search", "text", "engine"}
ALLOWED = {
    "platform": set(),
    "books": {"platform"},
    "store": {"books", "platform"},
    "results": {"books", "platform"} | ENGINE,
    "controls": {"platform"},
    "reading": {"platform"},
    "speech": {"controls", "reading", "platform"},
    "terminal": {"controls", "reading", "platform"},
    "braille": {"controls", "reading", "platform"},
    "app": {"controls", "results", "store", "books", "platform"},
    "taskman": {"app", "controls", "results", "store", "books", "platform", "terminal",
                "reading", "braille"},
    "cli": {"taskman", "app", "controls", "results", "store", "books", "platform",
            "terminal", "speech", "braille", "reading", "tools"} | ENGINE,
    "engine": set(),
    "text": {"engine"},
    "search": {"text", "engine"},
    "command": {"search", "text", "engine"},
    "tools": ENGINE | {"platform"},
}
# Tests may also use the shared fixtures and the book writers (the
# frame's tests start the reader through the task manager, and the
# engine's tests run it through its command layer); the fixtures,
# benchmarks and fuzz harnesses may use anything.
TEST_EXTRA = {"testing", "tools", "taskman", "terminal"}
FREE = {"testing", "bench", "fuzz"}
SKIP = {"docs", "man", "data", "scripts", "cmake"}

INCLUDE = re.compile(r'^\s*#\s*include\s+"([a-z0-9_]+)/', re.M)


def is_test(name):
    return name.endswith("_test.cc") or name.endswith("_for_test.h")


def scan(root):
    shipped, tests = {}, {}
    for folder in sorted(os.listdir(root)):
        path = os.path.join(root, folder)
        if (not os.path.isdir(path) or folder.startswith((".", "build"))
                or folder in SKIP):
            continue
        for walk_root, _, files in os.walk(path):
            for name in files:
                if not name.endswith((".cc", ".h")):
                    continue
                file = os.path.join(walk_root, name)
                with open(file, encoding="utf-8", errors="replace") as f:
                    targets = set(INCLUDE.findall(f.read())) - {folder}
                kind = tests if is_test(name) else shipped
                for target in targets:
                    if os.path.isdir(os.path.join(root, target)):
                        kind.setdefault(folder, {}).setdefault(target, []).append(
                            os.path.relpath(file, root))
        shipped.setdefault(folder, {})
    return shipped, tests


def find_cycle(graph):
    state = {}

    def visit(node, trail):
        state[node] = 1
        for nxt in sorted(graph.get(node, {})):
            if state.get(nxt) == 1:
                return trail + [node, nxt]
            if nxt not in state:
                found = visit(nxt, trail + [node])
                if found:
                    return found
        state[node] = 2
        return None

    for node in sorted(graph):
        if node not in state:
            found = visit(node, [])
            if found:
                return found[found.index(found[-1]):]
    return None


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..")
    shipped, tests = scan(root)
    faults = []
    for folder in sorted(shipped):
        uses = sorted(shipped[folder])
        test_only = sorted(set(tests.get(folder, {})) - set(uses))
        line = f"{folder:9} -> {' '.join(uses) or '(nothing)'}"
        if test_only:
            line += f"   [tests also: {' '.join(test_only)}]"
        print(line)
        if folder in FREE:
            continue
        allowed = ALLOWED.get(folder)
        if allowed is None:
            faults.append(f"{folder}: a folder the layering does not name")
            continue
        for target, files in sorted(shipped[folder].items()):
            if target not in allowed:
                faults.append(f"{folder} -> {target}: {', '.join(sorted(files))}")
        for target, files in sorted(tests.get(folder, {}).items()):
            extra = TEST_EXTRA | (ENGINE if folder in ENGINE else set())
            if target not in allowed | extra:
                faults.append(f"{folder} (tests) -> {target}: {', '.join(sorted(files))}")
    cycle = find_cycle({f: e for f, e in shipped.items() if f not in FREE})
    if cycle:
        faults.append("cycle: " + " -> ".join(cycle))
    for fault in faults:
        print("layering fault:", fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
