#!/usr/bin/env python3
"""Checks what the compiler cannot: which room includes which, where Qt and OS macros may stand, and that no call
follows the user's locale. Prints one line per finding and exits 1 if there is any."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCE = ROOT / "src"

# A room includes only rooms before it in this list. The adapters stand on the ports alone.
ROOMS = ["base", "model", "platform", "l10n", "samplers", "core", "bridge", "cloud", "diagnostics", "look",
         "menubar", "panels", "settings", "onboarding", "app"]
QT_ROOMS = {"look", "menubar", "panels", "settings", "onboarding", "app", "platform/qt"}
# Rooms whose parts do not know each other.
APART = [("bridge", "cloud"), ("cloud", "diagnostics"), ("bridge", "diagnostics")]

OS_MACRO = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif).*\b(__linux__|__APPLE__|_WIN32|__unix__|Q_OS_\w+)\b")
LOCALE_CALL = re.compile(
    r"(?<![\w:.>])(?:std::)?(s?n?printf|fprintf|vs?n?printf|strtod|strtof|strtold|atof|atoi|stod|stof|stold|stoi|"
    r"stol|stoul|stoull|setlocale|to_string|ostringstream|istringstream|stringstream)\s*[(<\s{]")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
COMMENT = re.compile(r"//.*$")

# file: what it may do, and why.
EXCEPTIONS = {
}
used_exceptions = set()


def excepted(path, rule):
    key = (str(path.relative_to(ROOT)), rule)
    if key in EXCEPTIONS:
        used_exceptions.add(key)
        return True
    return False


def room_of(relative):
    parts = relative.parts
    if parts[0] == "platform" and len(parts) > 2:
        return "platform/" + parts[1]
    return parts[0]


def allowed(room, target):
    """Whether a file in `room` may include one of `target`."""
    if room == target or room == "app":
        return True
    if target.startswith("platform/"):
        return False
    base = "platform" if room.startswith("platform/") else room
    if base not in ROOMS or target not in ROOMS:
        return False
    if (target, base) in APART or (base, target) in APART:
        return False
    return ROOMS.index(target) <= ROOMS.index(base)


def findings():
    graph = {}
    for path in sorted(SOURCE.rglob("*")):
        if path.suffix not in {".h", ".cpp"}:
            continue
        relative = path.relative_to(SOURCE)
        room = room_of(relative)
        graph[str(relative)] = []
        text = path.read_text(encoding="utf-8")
        if path.suffix == ".h" and "#pragma once" not in text:
            yield path, 1, "a header without #pragma once"
        for number, line in enumerate(text.splitlines(), 1):
            include = INCLUDE.match(line)
            if include:
                kind, name = include.groups()
                if kind == '"':
                    target = SOURCE / name
                    if not target.exists():
                        if not name.startswith("moc_") and not name.endswith(".moc"):
                            yield path, number, f'"{name}" is not below src/'
                        continue
                    graph[str(relative)].append(name)
                    target_room = room_of(pathlib.PurePath(name))
                    if not allowed(room, target_room):
                        yield path, number, f"{room}/ must not include {target_room}/"
                elif room not in QT_ROOMS and re.match(r"(Q[A-Z]|Qt)", name):
                    yield path, number, f"{room}/ knows no Qt, but includes <{name}>"
                continue
            code = COMMENT.sub("", line)
            if OS_MACRO.match(code) and not room.startswith("platform") and not excepted(path, "os-macro"):
                yield path, number, "an OS macro outside platform/"
            call = LOCALE_CALL.search(re.sub(r'"(\\.|[^"\\])*"', '""', code))
            if call and not excepted(path, "locale"):
                yield path, number, f"{call.group(1)} follows the user's locale: use FormatText.h or ParseNumber.h"
    yield from circles(graph, "a circle of includes: ")
    yield from circles(folders(graph), "a circle of folders: ")
    for name, rule in sorted(set(EXCEPTIONS) - used_exceptions):
        yield ROOT / name, 1, f"the exception for {rule} is not needed any more"


def folders(graph):
    """The same graph between folders."""
    between = {}
    for name, targets in graph.items():
        home = str(pathlib.PurePath(name).parent)
        others = {str(pathlib.PurePath(target).parent) for target in targets} - {home}
        between.setdefault(home, set()).update(others)
    return {home: sorted(others) for home, others in between.items()}


def circles(graph, what):
    state = {}

    def visit(name, trail):
        state[name] = "open"
        for target in graph.get(name, []):
            if state.get(target) == "open":
                yield SOURCE / name, 1, what + " > ".join(trail + [name, target])
            elif target not in state:
                yield from visit(target, trail + [name])
        state[name] = "done"

    for name in graph:
        if name not in state:
            yield from visit(name, [])


def main():
    count = 0
    for path, number, message in findings():
        print(f"{path.relative_to(ROOT)}:{number}: {message}")
        count += 1
    print(f"architecture: {count} findings")
    return 1 if count else 0


if __name__ == "__main__":
    sys.exit(main())
