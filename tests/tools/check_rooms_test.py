"""Holds tools/check-rooms against small trees, each with one thing that it has to find.

check_rooms_test.py SOURCE    SOURCE: the source tree whose tool and table of rooms are tried
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1))
TABLE = "docs/architecture.md"


class CheckRooms(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name in ("tools/check-rooms", TABLE):
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(SOURCE / name, self.root / name)
        self.put("display/board.cpp", '#include "display/board.h"\n#include "engine/rules/Game.h"\n#include <vector>\n')
        self.put("display/wx/frmMain.cpp", "#include <wx/frame.h>\n")

    def put(self, name, text):
        (self.root / name).parent.mkdir(parents=True, exist_ok=True)
        (self.root / name).write_text(text)

    def change_table(self, old, new):
        text = (self.root / TABLE).read_text()
        self.assertIn(old, text)
        self.put(TABLE, text.replace(old, new, 1))

    def check(self):
        """What the tool says of the tree, line by line; nothing when it is content."""
        for command in (["git", "init", "-q"], ["git", "add", "."]):
            subprocess.run(command, cwd=self.root, check=True, stderr=subprocess.DEVNULL)
        run = subprocess.run([sys.executable, self.root / "tools/check-rooms"], capture_output=True, text=True)
        lines = run.stderr.splitlines()
        self.assertEqual(run.returncode, 1 if lines else 0)
        return lines

    def test_is_content_with_includes_along_the_table(self):
        self.assertEqual(self.check(), [])

    def test_finds_an_include_against_the_table(self):
        self.put("engine/handlers.cpp", '#include "engine/modMAIN.h"\n\n#include "storage/notation.h"\n')
        self.assertEqual(self.check(), ["engine/handlers.cpp:3: engine/ may not use storage/notation.h"])

    def test_lets_a_room_use_a_single_header_and_no_other_of_that_room(self):
        self.put("display/zonedisplay.cpp", '#include "storage/settings.h"\n#include "storage/modINI.h"\n')
        self.assertEqual(self.check(), ["display/zonedisplay.cpp:2: display/ may not use storage/modINI.h"])

    def test_finds_the_toolkit_outside_the_windows(self):
        self.put("display/layout.cpp", '#include "display/layout.h"\n#include <wx/sizer.h>\n')
        self.assertEqual(self.check(), ["display/layout.cpp:2: the toolkit is for the wx folders"])

    def test_finds_a_circle_in_the_table(self):
        self.change_table("version numbers | `platform` |", "version numbers | `platform`, `net/wire` |")
        found = self.check()
        self.assertEqual(len(found), 1)
        circle = re.fullmatch(rf"{TABLE}:(\d+): these rooms use each other in a circle: (.*)", found[0])
        rooms = circle[2].split(", ")
        self.assertLessEqual({"net/wire", "text"}, set(rooms))
        row = (self.root / TABLE).read_text().splitlines()[int(circle[1]) - 1]
        self.assertTrue(row.startswith(f"| `{rooms[0]}/` |"), row)

    def test_finds_a_step_of_the_turn_machine_in_another_room(self):
        self.put("net/modTools.cpp", "void f(modMAIN& main) {\n    main.SetTurn(Red);\n}\n")
        self.put("engine/transfer.cpp", "void f(modMAIN& main) {\n    main.SetTurn(Red);\n}\n")
        self.assertEqual(self.check(), [
            "net/modTools.cpp:2: a step of the turn machine; other rooms call the doors of modMAIN"])

    def test_finds_names_that_differ_in_case_alone(self):
        self.put("display/Board.cpp", "\n")
        self.assertEqual(self.check(), [
            f"display/{name}.cpp: another name differs from this in case alone" for name in ("Board", "board")])

    def test_refuses_a_table_that_it_cannot_read(self):
        self.put(TABLE, "# Rooms\n\nA room is a folder.\n")
        self.assertEqual(self.check(),
                         [f"check-rooms: the table of rooms in {TABLE} cannot be read"])


unittest.main()
