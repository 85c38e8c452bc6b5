"""Reads the topics of the help."""
from html.parser import HTMLParser
from pathlib import Path


class Topic(HTMLParser):
    """One topic: its title, keywords and text, where it leads to, and its headings with the links below each."""

    def __init__(self, file: Path):
        super().__init__()
        self.name = file.name
        self.source = file.read_text(encoding="utf-8")
        self.keywords = []
        self.links = []
        self.pictures = []
        self.sections = []  # (heading, [(caption, link)])
        self._texts = {"title": "", "h2": "", "a": "", "body": ""}
        self._open = []
        self.feed(self.source)
        self.close()
        self.title = self._texts["title"]
        self.text = " ".join(self._texts["body"].split())

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        if tag in self._texts:
            self._open.append(tag)
        if tag == "meta" and values.get("name") == "keywords":
            self.keywords = [word.strip() for word in values["content"].split(";")]
        elif tag == "link" or tag == "a":
            self.links.append(values["href"])
        elif tag == "img":
            self.pictures.append(values["src"])
        if tag in ("a", "h2"):
            self._texts[tag] = ""

    def handle_data(self, data):
        for tag in self._open:
            self._texts[tag] += data

    def handle_endtag(self, tag):
        if tag in self._texts:
            self._open.remove(tag)
        if tag == "h2":
            self.sections.append((" ".join(self._texts["h2"].split()), []))
        elif tag == "a" and self.sections:
            self.sections[-1][1].append((" ".join(self._texts["a"].split()), self.links[-1]))


def read_topics(folder: Path) -> list[Topic]:
    """All topics in the order of their numbers."""
    return [Topic(file) for file in sorted(folder.glob("Tarvix_*.htm"), key=lambda file: int(file.stem[7:]))]
