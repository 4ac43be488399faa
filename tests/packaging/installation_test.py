"""Holds what "cmake --install" puts into place against the programs and the sources.

installation_test.py SOURCE BUILD CMAKE    SOURCE: the source tree; BUILD: a build folder of it that is up to date
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

SOURCE, BUILD, CMAKE = (pathlib.Path(argument) for argument in sys.argv[1:4])
del sys.argv[1:]
COMPONENTS = ("game", "computer", "lobby")


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def options_in(text):
    return set(re.findall(r"--[a-z][a-z-]*", text))


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.root = pathlib.Path(cls.folder.name)
        for component in COMPONENTS:
            cls.install(component, cls.root / component)
        cls.usr = cls.root / "game/usr"

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    @staticmethod
    def install(component, folder):
        environment = dict(os.environ, DESTDIR=str(folder))
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", "/usr", "--component", component], check=True,
                       capture_output=True, env=environment)

    def page(self, component, name):
        return next(self.root.glob(f"{component}/usr/share/man/man*/{name}")).read_text()

    def test_the_command_is_a_link_to_the_program_beside_its_files(self):
        program = (self.usr / "bin/tarveth").resolve()
        self.assertTrue(program.is_file())
        for name in ("pics", "sounds", "servers.txt", "tarveth.htb", "tarveth-help.so"):
            self.assertTrue((program.parent / name).exists(), name)

    def test_the_command_is_in_the_manifest(self):
        manifest = (BUILD / "install_manifest_game.txt").read_text().splitlines()
        self.assertIn("/usr/bin/tarveth", manifest)

    def test_each_program_has_its_licence_beside_its_documents(self):
        for component, name in (("game", "tarveth"), ("lobby", "tarveth-lobby")):
            licence = self.root / component / "usr/share/doc" / name / "LICENSE"
            self.assertEqual(licence.read_text(), (SOURCE / "LICENSE").read_text())

    def test_the_icon_is_there_in_every_size_for_the_program_and_for_saved_games(self):
        icons = self.usr / "share/icons/hicolor"
        for size in (16, 32, 48, 64, 128, 256):
            for name in ("apps/tarveth.png", "mimetypes/application-x-tarveth-game.png"):
                picture = (icons / f"{size}x{size}" / name).read_bytes()
                self.assertEqual(int.from_bytes(picture[16:20], "big"), size)
        for name in ("apps/tarveth.svg", "mimetypes/application-x-tarveth-game.svg"):
            xml.etree.ElementTree.parse(icons / "scalable" / name)

    def test_the_releases_are_those_of_the_changelog(self):
        component = xml.etree.ElementTree.parse(self.usr / "share/metainfo/org.tarveth.tarveth.metainfo.xml")
        releases = [release.get("version") for release in component.iter("release")]
        changelog = (SOURCE / "CHANGELOG.md").read_text()
        self.assertEqual(releases, re.findall(r"^## ([0-9.]+)", changelog, re.MULTILINE))
        items = len(re.findall("^- ", changelog, re.MULTILINE))
        self.assertEqual(len(list(component.find("releases").iter("li"))), items)

    def test_the_service_starts_the_program_that_is_installed(self):
        unit = next(self.root.glob("lobby/usr/lib/systemd/system/tarveth-lobby.service")).read_text()
        program = re.search("ExecStart=([^ ]*) --config ([^ ]*)", unit)
        installed = output_of(CMAKE, "-LA", "-N", BUILD)
        prefix = re.search("CMAKE_INSTALL_PREFIX:PATH=(.*)", installed)[1]
        self.assertEqual(program[1], prefix + "/bin/tarveth-lobby")
        self.assertTrue((self.root / "lobby/usr/bin/tarveth-lobby").is_file())

    def test_the_manual_pages_tell_each_option_and_no_other(self):
        for component, name, page in (("lobby", "tarveth-lobby", "tarveth-lobby.8"),
                                      ("computer", "tarveth-computer", "tarveth-computer.6")):
            told = options_in(self.page(component, page).replace("\\-", "-"))
            self.assertEqual(told, options_in(output_of(BUILD / "bin" / name, "--help")), page)
        told = options_in(self.page("lobby", "tarveth-lobby-ctl.8").replace("\\-", "-"))
        self.assertLessEqual(options_in(output_of(BUILD / "bin/tarveth-lobby-ctl", "--help")), told)
        told = options_in(self.page("game", "tarveth.6").replace("\\-", "-"))
        self.assertLessEqual(options_in(output_of(BUILD / "bin/tarveth", "--help")), told)

    def test_the_manual_pages_begin_with_their_names(self):
        for component, page in (("game", "tarveth.6"), ("computer", "tarveth-computer.6"),
                                ("lobby", "tarveth-lobby.8"), ("lobby", "tarveth-lobby-ctl.8")):
            text = self.page(component, page)
            heading, after = text.split(".SH", 1)
            self.assertTrue(after.split("\n", 1)[0].strip(' "').upper() == "NAME", page)
            shown = [line for line in heading.splitlines() if not line.startswith((".", "'"))]
            self.assertEqual(shown, [], page)


class Completion(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def complete(self, program, *words):
        """What bash would offer for the last word."""
        script = f"""
            source '{SOURCE}/packaging/linux/completions/{program}'
            COMP_WORDS=('{BUILD}/bin/{program}' "$@") COMP_CWORD=$#
            function=$(complete -p {program} | sed 's/.*-F \\([^ ]*\\) .*/\\1/')
            "$function" '{BUILD}/bin/{program}'
            printf '%s\\n' "${{COMPREPLY[@]}}"
        """
        result = subprocess.run(["bash", "-c", script, "bash", *words], capture_output=True, text=True,
                                cwd=self.folder)
        self.assertEqual(result.stderr, "")
        return result.stdout.split("\n")[:-1]

    def test_of_the_game_offers_saved_games_and_folders(self):
        for name in ("one.TSG", "other.tsg", "other.txt"):
            (self.folder / name).touch()
        (self.folder / "old").mkdir()
        self.assertEqual(sorted(self.complete("tarveth", "o")), ["old", "one.TSG", "other.tsg"])
        self.assertEqual(set(self.complete("tarveth", "--")), options_in(output_of(BUILD / "bin/tarveth", "--help")))

    def test_of_the_lobby_offers_all_its_options(self):
        options = options_in(output_of(BUILD / "bin/tarveth-lobby", "--help"))
        self.assertEqual(set(self.complete("tarveth-lobby", "--")), options)
        self.assertEqual(self.complete("tarveth-lobby", "--log-level", "w"), ["warn"])

    def test_of_the_computer_offers_all_its_options_and_levels(self):
        options = options_in(output_of(BUILD / "bin/tarveth-computer", "--help"))
        self.assertEqual(set(self.complete("tarveth-computer", "--")), options)
        for level in self.complete("tarveth-computer", "--level", ""):
            output_of(BUILD / "bin/tarveth-computer", "--protocol", "--level", level, "--version")


if __name__ == "__main__":
    unittest.main()
