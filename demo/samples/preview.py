"""The picture that a drawing file carries of itself, drawn from the layout that was shown last."""
import math
import struct
import subprocess

SENTINEL = bytes.fromhex("1F256D07D43628289D57CA3F9D44102B")
SECTION = 0x40  # where the preview section begins
HEADER, DIB, PNG = 1, 2, 6
FIRST_WITH_PNG = "AC1027"
LONGEST_SIDE = 512  # pixels
FRAME = 10  # mm from the paper's edges
LINES = 500  # as many of them would fill the paper's width


def polygon(points):
    return f'<polygon points="{" ".join(f"{x},{y}" for x, y in points)}"/>'


def drawn(entity):
    """An entity as SVG, in the drawing's own coordinates."""
    dxf, kind = entity.dxf, entity.dxftype()
    if kind == "LINE":
        return f'<path d="M{dxf.start.x},{dxf.start.y} {dxf.end.x},{dxf.end.y}"/>'
    if kind == "CIRCLE":
        return f'<circle cx="{dxf.center.x}" cy="{dxf.center.y}" r="{dxf.radius}"/>'
    if kind == "LWPOLYLINE":
        return polygon((x, y) for x, y, *_ in entity.get_points())
    if kind == "POLYLINE":
        return polygon((point.x, point.y) for point in entity.points())
    if kind in ("TEXT", "ATTRIB"):
        place = f'transform="translate({dxf.insert.x},{dxf.insert.y}) rotate({dxf.rotation}) scale(1,-1)"'
        return f'<text {place} font-size="{dxf.height * 1.4}" fill="black" stroke="none">{dxf.text}</text>'
    if kind == "INSERT":
        return "".join(map(drawn, [*entity.virtual_entities(), *entity.attribs]))
    return ""


def window(viewport, model, line):
    """A viewport with the part of model space that it shows."""
    dxf = viewport.dxf
    left, bottom = dxf.center.x - dxf.width / 2, dxf.center.y - dxf.height / 2
    scale = dxf.height / dxf.view_height
    shift = (dxf.center.x / scale - dxf.view_center_point.x, dxf.center.y / scale - dxf.view_center_point.y)
    name = f"window{dxf.handle}"
    return (f'<clipPath id="{name}"><rect x="{left}" y="{bottom}" width="{dxf.width}" height="{dxf.height}"/></clipPath>'
            f'<rect x="{left}" y="{bottom}" width="{dxf.width}" height="{dxf.height}"/>'
            f'<g clip-path="url(#{name})"><g transform="scale({scale}) translate({shift[0]},{shift[1]})" stroke="#2B78B8"'
            f' stroke-width="{line / scale}">{"".join(map(drawn, model))}</g></g>')


def svg(doc):
    """The active sheet: its paper, the frame on it, its windows and what else stands on it."""
    layout = doc.layouts.active_layout()
    sheet = layout.dxf_layout.dxf
    width, height = sheet.paper_width, sheet.paper_height
    line = max(width, height) / LINES
    windows = [one for one in layout.query("VIEWPORT") if one.dxf.status > 1]
    parts = [window(one, doc.modelspace(), line) for one in windows] + [drawn(one) for one in layout]
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}"><g transform="translate(0,{height}) '
            f'scale(1,-1)" fill="none" stroke="black" stroke-width="{line}" font-family="sans-serif">'
            f'<rect width="{width}" height="{height}" fill="white" stroke="#9A9A9A"/>'
            f'<rect x="{FRAME}" y="{FRAME}" width="{width - 2 * FRAME}" height="{height - 2 * FRAME}"'
            f' stroke-width="{2 * line}"/>{"".join(parts)}</g></svg>'), width / height


def converted(data, *command):
    return subprocess.run(command, input=data, stdout=subprocess.PIPE, check=True).stdout


def picture(doc, kind):
    text, ratio = svg(doc)
    size = [f"--width={math.ceil(LONGEST_SIDE * min(1, ratio))}", f"--height={math.ceil(LONGEST_SIDE * min(1, 1 / ratio))}"]
    png = converted(text.encode(), "rsvg-convert", "--format=png", *size)
    if kind == PNG:
        return png
    bitmap = converted(png, "convert", "png:-", "-strip", "+dither", "-type", "palette", "BMP3:-")
    return bitmap[14:]  # without the header of a bitmap file


def with_preview(doc, content):
    """The bytes of a file that begins as the host's do, with a picture, and holds the content behind it."""
    kind = PNG if doc.dxfversion >= FIRST_WITH_PNG else DIB
    parts = {HEADER: bytes(80), kind: picture(doc, kind)}
    start = SECTION + len(SENTINEL) + 4 + 1 + 9 * len(parts)
    records, data = b"", b""
    for code, part in parts.items():
        records += struct.pack("<BII", code, start + len(data), len(part))
        data += part
    body = struct.pack("<B", len(parts)) + records + data
    head = doc.dxfversion.encode().ljust(13, b"\0") + struct.pack("<I", SECTION)
    end = bytes(byte ^ 0xFF for byte in SENTINEL)
    return head.ljust(SECTION, b"\0") + SENTINEL + struct.pack("<I", len(body)) + body + end + content
