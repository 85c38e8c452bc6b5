#!/usr/bin/python3
"""Compiles the help.

    make_help.py TARGET.chm

The topics lie beside this script, in UTF-8, and take their pictures from docs/pictures. Contents and index are made
from them: the contents from the headings and links of Tarvix_1.htm, the index from each topic's keywords, which also
fill the list in Tarvix_32.htm. The viewer takes both in the ANSI code page only, the topics in UTF-8 as well. The
compiler's search index breaks words at umlauts, which Tarvix_32.htm tells the reader.
"""
import html
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from topics import Topic, read_topics

HERE = Path(__file__).resolve().parent
PICTURES = HERE.parent / "docs" / "pictures"
START = "Tarvix_1.htm"

# In the window: tree, index and search on the left, kept in step with the topic; its place is kept.
PROJECT = """[OPTIONS]
Compatibility=1.1 or later
Compiled file=Tarvix.chm
Binary Index=No
Contents file=Tarvix.hhc
Index file=Tarvix.hhk
Default topic={start}
Default Window=main
Full-text search=Yes
Language=0x407
Title=Blattwart
[WINDOWS]
main="Hilfe zu Blattwart","Tarvix.hhc","Tarvix.hhk","{start}","{start}",,,,,0x42520,240,0x10384e,[60,40,1160,840],,,,,,,0
[FILES]
{files}
"""


def write_ansi(file: Path, text: str) -> None:
    file.write_text(text, encoding="cp1252")


def entry(name: str, link: str = "") -> str:
    local = f'<param name="Local" value="{link}">' if link else ""
    return f'<LI><OBJECT type="text/sitemap"><param name="Name" value="{html.escape(name)}">{local}</OBJECT>\n'


def sitemap(entries: str) -> str:
    return ('<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<HTML>\n<HEAD></HEAD>\n<BODY>\n<UL>\n' + entries +
            "</UL>\n</BODY>\n</HTML>\n")


def contents(start: Topic) -> str:
    text = entry(start.title, start.name)
    for heading, links in start.sections:
        text += entry(heading) + "<UL>\n" + "".join(entry(*link) for link in links) + "</UL>\n"
    return sitemap(text)


def by_alphabet(words) -> list[str]:
    plain = str.maketrans("äöüÄÖÜß", "aouAOUs")
    return sorted(words, key=lambda word: (word.translate(plain).lower(), word))


def index_of(topics: list[Topic]) -> dict[str, list[Topic]]:
    index = {}
    for topic in topics:
        for word in topic.keywords:
            index.setdefault(word, []).append(topic)
    return {word: index[word] for word in by_alphabet(index)}


def index_file(index: dict[str, list[Topic]]) -> str:
    text = ""
    for word, topics in index.items():
        if len(topics) == 1:
            text += entry(word, topics[0].name)
        else:
            text += entry(word) + "<UL>\n" + "".join(entry(topic.title, topic.name) for topic in topics) + "</UL>\n"
    return sitemap(text)


def keyword_list(index: dict[str, list[Topic]]) -> str:
    rows = (f"<li>{html.escape(word)}: " +
            ", ".join(f'<a href="{topic.name}">{html.escape(topic.title)}</a>' for topic in topics) + "</li>"
            for word, topics in index.items())
    return "<ul>\n" + "\n".join(rows) + "\n</ul>"


def prepare(folder: Path) -> None:
    """Writes all that the compiler takes."""
    topics = read_topics(HERE)
    index = index_of(topics)
    (folder / "pictures").mkdir()
    files = ["Tarvix.css"] + [topic.name for topic in topics]
    shutil.copy(HERE / "Tarvix.css", folder)
    for topic in topics:
        text = topic.source.replace("../docs/pictures/", "pictures/")
        text = text.replace("<!-- Stichwörter -->", keyword_list(index))
        (folder / topic.name).write_text(text, encoding="utf-8")
    for picture in sorted({Path(link).name for topic in topics for link in topic.pictures}):
        shutil.copy(PICTURES / picture, folder / "pictures")
        files.append(f"pictures/{picture}")
    write_ansi(folder / "Tarvix.hhc", contents(next(topic for topic in topics if topic.name == START)))
    write_ansi(folder / "Tarvix.hhk", index_file(index))
    write_ansi(folder / "Tarvix.hhp", PROJECT.format(start=START, files="\n".join(files)))


def main() -> None:
    target = Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as folder:
        prepare(Path(folder))
        result = subprocess.run(["chmcmd", "Tarvix.hhp"], cwd=folder, capture_output=True, text=True, errors="replace")
        compiled = Path(folder, "Tarvix.chm")
        # Where something is missing the compiler fails and leaves an empty file.
        if result.returncode != 0 or not compiled.exists() or compiled.stat().st_size == 0:
            sys.exit(f"chmcmd failed ({result.returncode}):\n{result.stdout}{result.stderr}")
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(compiled, target)


if __name__ == "__main__":
    main()
