#!/usr/bin/python3
"""Writes the sample drawings that the demonstration host opens, for trying the program and for tests.

    make_samples.py FOLDER

Needs Debian's python3-ezdxf: a writer that shares no code with the host's reader. All files are ASCII DXF, also those
that end in .dwg or .dwt; those of the library begin with the head and the picture of a DWG, as the host writes them. The
same call always gives the same bytes.
"""
import argparse
import os
import sys
from dataclasses import dataclass
from pathlib import Path

import ezdxf
from preview import with_preview

APPLICATION = "Tarvix"
NO_DEVICE = "none_device"
A1 = ("ISO_A1_(841.00_x_594.00_MM)", 841, 594)
A3 = ("ISO_A3_(420.00_x_297.00_MM)", 420, 297)
A3_UPRIGHT = ("ISO_A3_(297.00_x_420.00_MM)", 297, 420)
A4 = ("ISO_A4_(210.00_x_297.00_MM)", 210, 297)
LETTER = ("Letter_(8.50_x_11.00_Inches)", 215.9, 279.4)
DISPLAY, EXTENTS, LIMITS, VIEW, WINDOW, LAYOUT = range(6)
INCHES, MILLIMETRES = 0, 1
STAMP, NORTH, LEGEND = (8, "TX_STEMPEL_A3"), (9, "TX_NORDPFEIL"), (14, "TX_LEGENDE")


@dataclass
class Window:
    """A viewport of the application: 1 to `scale`, with its label and its number for the overview."""

    label: str
    scale: float
    overview: int = 0
    foreign: bool = False  # carries another application's data too


@dataclass
class Sheet:
    """A paper layout. One that was never shown has no viewport for the sheet itself."""

    name: str
    device: str = "DWG To PDF.pc3"
    paper: tuple = A3
    rotation: int = 0
    plot_type: int = LAYOUT
    style: str = ""
    windows: tuple = ()
    marks: tuple = ()
    shown: bool = True
    units: int = MILLIMETRES


@dataclass
class Plan:
    """A drawing: its layouts, the one that was shown last, and whether it or model space is current."""

    path: str
    release: str
    sheets: tuple
    active: str = ""
    model_current: bool = False


SHEETS_GROUND_FLOOR = (
    Sheet("Grundriß 1-50", style="monochrome.ctb", marks=(STAMP, NORTH, LEGEND),
          windows=(Window("Erdgeschoß Süd", 50, 1, True), Window("Detail Treppe", 20))),
    Sheet("Übersicht", "HP DesignJet 500 (Büro, 2. OG)", A1, 1, EXTENTS, "acad.ctb", (Window("", 200, 2),), (STAMP,)),
    Sheet("Kopie für Ämter", "Kyocera Größe A3", A3_UPRIGHT, 2, LIMITS, "Grauwerte.ctb", shown=False),
    Sheet("Leer", NO_DEVICE, A4, 3, WINDOW, shown=False),
)

PLANS = (
    Plan("Zeichnungen/Erdgeschoß Süd.dwg", "R2010", SHEETS_GROUND_FLOOR, "Grundriß 1-50"),
    Plan("Zeichnungen/Schnitt A-A.dwg", "R2000", (
        Sheet("Schnitt A-A", style="monochrome.ctb", windows=(Window("Schnitt – 1:100 €", 100),), marks=(STAMP, LEGEND)),
        Sheet("Schnitt Ω", "Default Windows System Printer.pc3", A4, 1, VIEW, shown=False),
        Sheet("Letter", "None", LETTER, 0, DISPLAY, "acad.ctb", shown=False, units=INCHES),
    ), "Schnitt A-A", model_current=True),
    Plan("Zeichnungen/Nur Modell.dwg", "R2004", ()),
    Plan("Zeichnungen/Werkplan Obergeschoß.dxf", "R2007", (
        Sheet("Blatt 10", paper=A1, style="monochrome.ctb", windows=(Window("Obergeschoß", 50),), marks=(STAMP, NORTH)),
        Sheet("Blatt 2", paper=A4, windows=(Window("Bad", 25), Window("Küche", 25), Window("Flur", 33.3)), shown=False),
        Sheet("Blatt 1", "", ("", 0, 0), shown=False),
    ), "Blatt 10"),
    Plan("Haus 1/Plan.dwg", "R2013", (
        Sheet("Lageplan", paper=A1, rotation=1, windows=(Window("Lage", 500, 1),), marks=(STAMP, NORTH)),
        Sheet("Ansicht", shown=False),
    ), "Lageplan"),
    Plan("Haus 2/Plan.dwg", "R2018", (
        Sheet("Lageplan", paper=A3, style="screening 50%.ctb", windows=(Window("Lage", 1000, 1),), marks=(NORTH,)),
    ), "Lageplan", model_current=True),
    Plan("Vorlagen/A3 quer.dwt", "R2010", (
        Sheet("A3 quer", style="monochrome.ctb", marks=(STAMP,), windows=(Window("Grundriß", 100),)),), "A3 quer"),
    Plan("Vorlagen/A4 hoch.dwt", "R2000", (Sheet("A4 hoch", paper=A4),), "A4 hoch", model_current=True),
    Plan("Vorlagen/Büro Standard.dwt", "R2018", (
        Sheet("Entwurf", paper=A3, marks=(STAMP, LEGEND)), Sheet("Werkplan", paper=A1, rotation=1, shown=False)), "Entwurf"),
    Plan("Vorlagen/Rahmen A1.DWG", "R2013", (Sheet("Rahmen A1", paper=A1, marks=(STAMP, NORTH)),), "Rahmen A1"),
)
LIBRARY = "Vorlagen/"
OTHER_FILES = {
    "Vorlagen/Alter Plot.dwf": "(DWF V06.00)\r\n",
    "Vorlagen/Hinweise.txt": "Diese Datei ist keine Vorlage.\r\n",
}


def mark_data(kind):
    return [(1071, 0), (1005, f"{kind:X}")]


def window_data(window):
    data = [(1071, 0), (1005, "1"), (1071, 21), (1005, f"{window.overview:X}")]
    return data + ([(1071, 121), (1000, window.label)] if window.label else [])


def define_blocks(doc):
    stamp = doc.blocks.new(STAMP[1])
    stamp.add_lwpolyline([(0, 0), (180, 0), (180, 55), (0, 55)], close=True)
    stamp.add_attdef("BAUHERR", (5, 40), dxfattribs={"height": 5, "prompt": "Bauherr"})
    stamp.add_attdef("MASSSTAB", (5, 10), dxfattribs={"height": 3.5, "prompt": "Maßstab"})
    north = doc.blocks.new(NORTH[1])
    north.add_circle((0, 0), 10)
    north.add_line((0, -10), (0, 10))
    legend = doc.blocks.new(LEGEND[1])
    legend.add_text("Legende", height=5)


def draw_model(doc):
    model = doc.modelspace()
    for i in range(4):
        model.add_line((i * 100, 0), (i * 100, 8000), {"layer": "Wände"})
    model.add_polyline2d([(0, 0), (12000, 0), (12000, 8000), (0, 8000)], close=True)
    model.add_linear_dim(base=(0, -1000), p1=(0, 0), p2=(12000, 0)).render()


def add_window(layout, sheet, index, window):
    width, height = sheet.paper[1] / 2 - 20, sheet.paper[2] / 2
    viewport = layout.add_viewport(
        center=(15 + width / 2 + index * (width + 5), height), size=(width, height),
        view_center_point=(6000, 4000), view_height=height * window.scale)
    viewport.dxf.status = index + 2
    viewport.set_xdata(APPLICATION, window_data(window))
    if window.foreign:
        viewport.set_xdata("FREMDPROGRAMM", [(1000, "Größe"), (1040, 1.5), (1010, (1.0, 2.0, 3.0)), (1070, 7)])


def add_mark(layout, sheet, kind, name):
    reference = layout.add_blockref(name, (sheet.paper[1] - 190, 10 + kind), {"rotation": 90.0 if kind == 9 else 0.0})
    reference.set_xdata(APPLICATION, mark_data(kind))
    if name == STAMP[1]:
        reference.add_auto_attribs({"BAUHERR": "Familie Müller", "MASSSTAB": "1:50"})


def set_plot(layout, sheet):
    dxf = layout.dxf_layout.dxf
    dxf.plot_configuration_file = sheet.device
    dxf.paper_size, dxf.paper_width, dxf.paper_height = sheet.paper
    dxf.plot_paper_units = sheet.units
    dxf.plot_rotation = sheet.rotation
    dxf.plot_type = sheet.plot_type
    dxf.current_style_sheet = sheet.style


def add_sheet(doc, sheet, tab):
    layout = doc.layouts.new(sheet.name)
    layout.dxf_layout.dxf.taborder = tab
    set_plot(layout, sheet)
    if sheet.shown:
        layout.reset_main_viewport()
    for index, window in enumerate(sheet.windows):
        add_window(layout, sheet, index, window)
    for kind, name in sheet.marks:
        add_mark(layout, sheet, kind, name)


def build(plan):
    doc = ezdxf.new(plan.release)
    doc.appids.new(APPLICATION)
    doc.appids.new("FREMDPROGRAMM")
    for name in ("Wände", "VIEWPORTS"):
        doc.layers.new(name)
    define_blocks(doc)
    draw_model(doc)
    for tab, sheet in enumerate(plan.sheets, start=1):
        add_sheet(doc, sheet, tab)
    if plan.sheets:
        doc.layouts.delete("Layout1")
        doc.layouts.set_active_layout(plan.active)
    doc.header["$TILEMODE"] = 1 if plan.model_current or not plan.sheets else 0
    return doc


def records_of(text):
    """The file as lists of (code, value); each list starts with group 0."""
    lines = text.split("\n")
    records = []
    for code, value in zip(lines[0::2], lines[1::2]):
        if code.strip() == "0":
            records.append([])
        records[-1].append((code, value))
    return records


def remove_paper_layout(path, encoding):
    """ezdxf always writes a paper layout; this takes the one of the file away and leaves its empty block."""
    records = records_of(path.read_text(encoding=encoding))
    gone = next(r for r in records if r[0][1] == "LAYOUT" and ("  1", "Layout1") in r)
    handle = next(value for code, value in gone if code == "  5")
    records.remove(gone)
    for record in records:
        if record[0][1] == "DICTIONARY" and ("  3", "Layout1") in record:
            at = record.index(("  3", "Layout1"))
            del record[at:at + 2]
        if record[0][1] == "BLOCK_RECORD" and ("340", handle) in record:
            record[record.index(("340", handle))] = ("340", "0")
    path.write_text("".join(f"{code}\n{value}\n" for record in records for code, value in record), encoding=encoding)


def write_samples(folder):
    for plan in PLANS:
        path = folder / plan.path
        path.parent.mkdir(parents=True, exist_ok=True)
        doc = build(plan)
        doc.saveas(path)
        if not plan.sheets:
            remove_paper_layout(path, doc.output_encoding)
        if plan.path.startswith(LIBRARY):
            path.write_bytes(with_preview(doc, path.read_bytes()))
    for name, text in OTHER_FILES.items():
        (folder / name).write_text(text, encoding="cp1252")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=Path)
    arguments = parser.parse_args()
    if os.environ.get("PYTHONHASHSEED") != "0":  # ezdxf writes some sets in their own order
        os.execve(sys.executable, [sys.executable, *sys.argv], {**os.environ, "PYTHONHASHSEED": "0"})
    ezdxf.options.write_fixed_meta_data_for_testing = True
    write_samples(arguments.folder)


if __name__ == "__main__":
    main()
