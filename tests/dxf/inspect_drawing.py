"""Reads drawings with ezdxf and tells what it found: faults, then each layout with the number of its entities.

    inspect_drawing.py [--all] FILES

With --all also their types, the extended data and the plot settings.
"""
import re
import sys
import tempfile
from pathlib import Path

import ezdxf

SETTINGS = ("page_setup_name plot_configuration_file paper_size paper_width paper_height left_margin plot_paper_units "
            "plot_rotation plot_type current_style_sheet limmax").split()


PICTURE_END = bytes.fromhex("E0DA92F82BC9D7D762A835C062BBEFD4")


def read(file):
    """The drawing, also one that begins with the picture of a DWG."""
    with tempfile.NamedTemporaryFile(suffix=".dxf") as text:
        text.write(Path(file).read_bytes().rpartition(PICTURE_END)[2])
        text.flush()
        return ezdxf.readfile(text.name)


def decoded(name):
    """ezdxf writes this form into old releases, but does not read it in names."""
    return re.sub(r"\\U\+([0-9a-f]{4})", lambda match: chr(int(match[1], 16)), name)


def data_of(entity):
    return [list(map(tuple, entity.get_xdata(name))) for name in ("Tarvix", "FREMDPROGRAMM") if entity.has_xdata(name)]


everything = sys.argv[1] == "--all"
sys.stdout.reconfigure(encoding="utf-8")
for file in sys.argv[1 + everything:]:
    doc = read(file)
    audit = doc.audit()
    print("faults:", *[fault.message for fault in audit.errors + audit.fixes])
    for name in doc.layouts.names_in_taborder():
        layout = doc.layouts.get(name)
        marks = " ".join(f"{e.dxf.name}[{len(e.attribs)}]" for e in layout.query("INSERT"))
        print(f"{layout.dxf.taborder} {decoded(name)}: {len(layout)} {marks}".rstrip())
        if everything:
            print(*[layout.dxf.get(setting) for setting in SETTINGS])
            print(*[f"{e} {e.dxf.layer} {data_of(e)}" for e in layout], sep="\n")
    if everything:
        print("layers", *sorted(layer.dxf.name for layer in doc.layers))
