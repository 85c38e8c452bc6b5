"""Reads a drawing with ezdxf and tells what it found: release, faults, layouts with the number of their entities."""
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
audit = doc.audit()
print(doc.dxfversion, "faults:", *[fault.message for fault in audit.errors + audit.fixes], file=sys.stdout)
for name in doc.layouts.names_in_taborder():
    layout = doc.layouts.get(name)
    marks = " ".join(f"{e.dxf.name}[{len(e.attribs)}]" for e in layout.query("INSERT"))
    sys.stdout.buffer.write(f"{layout.dxf.taborder} {name}: {len(layout)} {marks}".rstrip().encode() + b"\n")
    sys.stdout.flush()
