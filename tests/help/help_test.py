#!/usr/bin/python3
"""Checks the help and the pictures of all documents: help_test.py PROJECT_FOLDER HELP_FILE."""
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

project, compiled = Path(sys.argv[1]), Path(sys.argv[2])
sys.path.insert(0, str(project / "help"))
from topics import read_topics  # noqa: E402

SOURCES = [file for end in ("*.cpp", "*.h") for file in (project / "src").rglob(end)]
DOCUMENTS = [*project.glob("*.md"), *(project / "docs").glob("*.md")]


def literals(pattern: str, text: str) -> list[str]:
    """The wide texts that follow a pattern, joined where they are written in several pieces."""
    joined = re.sub(r'"\s+L"', "", text)
    return [found.replace("&", "").replace(r"\n", "").strip(" :") for found in re.findall(pattern + r'L"([^"]+)"', joined)]


class Help(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.topics = read_topics(project / "help")
        cls.text = " ".join(topic.text for topic in cls.topics)
        cls.folder = tempfile.TemporaryDirectory()
        subprocess.run(["extract_chmLib", compiled, cls.folder.name], check=True, capture_output=True)
        cls.content = Path(cls.folder.name)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def sitemap(self, end: str) -> set[str]:
        text = (self.content / f"Tarvix.{end}").read_text(encoding="cp1252")
        return set(re.findall(r'name="Local" value="([^"]*)"', text, re.IGNORECASE))

    def test_links_lead_somewhere(self):
        for topic in self.topics:
            for link in topic.links + topic.pictures:
                with self.subTest(topic=topic.name, link=link):
                    self.assertTrue((project / "help" / link).is_file())

    def test_links_lead_somewhere_in_the_compiled_help(self):
        for topic in read_topics(self.content):
            for link in topic.links + topic.pictures:
                with self.subTest(topic=topic.name, link=link):
                    self.assertTrue((self.content / link).is_file())

    def test_contents_and_index_lead_to_every_topic(self):
        names = {topic.name for topic in self.topics}
        self.assertEqual(names, self.sitemap("hhc"))
        self.assertEqual(names, self.sitemap("hhk"))

    def test_every_topic_that_the_program_asks_for_exists(self):
        asked = {name for file in SOURCES for name in re.findall(r'L"(Tarvix_\d+)"', file.read_text(encoding="utf-8"))}
        self.assertTrue(asked)
        for name in asked:
            with self.subTest(topic=name):
                self.assertTrue((self.content / f"{name}.htm").is_file())

    def test_every_command_is_explained(self):
        commands = (project / "src" / "shell" / "Commands.cpp").read_text(encoding="utf-8")
        captions = set(literals(r"(?:(?:caption|toolTip) = |return )", commands))
        self.assertIn("Zeichnung aktivieren", captions)
        for caption in captions:
            with self.subTest(caption=caption):
                self.assertTrue(caption in self.text)

    def test_every_message_is_explained(self):
        messages = {text for file in SOURCES for text in literals("", file.read_text(encoding="utf-8"))
                    if text.endswith(("!", "?")) and " " in text}
        self.assertIn("Ungültige Anzahl!", messages)
        for message in messages:
            with self.subTest(message=message):
                self.assertTrue(message in self.text)

    def test_pictures_are_used_and_exist(self):
        used = {Path(link).name for topic in self.topics for link in topic.pictures}
        for document in DOCUMENTS:
            for link in re.findall(r"!\[[^]]*\]\(([^)]*)\)", document.read_text(encoding="utf-8")):
                with self.subTest(document=document.name, picture=link):
                    self.assertTrue((document.parent / link).is_file())
                used.add(Path(link).name)
        self.assertEqual(used, {file.name for file in (project / "docs" / "pictures").iterdir()})

    def test_a_missing_picture_fails_the_build(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copytree(project / "help", Path(folder, "help"))
            target = Path(folder, "Tarvix.chm")
            result = subprocess.run([sys.executable, "-B", Path(folder, "help", "make_help.py"), target],
                                    capture_output=True)
            self.assertNotEqual(0, result.returncode)
            self.assertFalse(target.exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
