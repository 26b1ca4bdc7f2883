#!/usr/bin/python3
"""Draws docs/format.svg, the layout of an image: kelvra-image fields --json | scripts/layout.py > docs/format.svg"""
import json
import sys

WIDTH, TOP, BOX, MARGIN = 800, 30, 246, 64
RIGHT = WIDTH - MARGIN - BOX  # where the stack of a long name begins
ENVELOPE, BLOCK, ZEROS, LID, LINE = "#4a6fa5", "#2b7a78", "#6b7078", "#a5612a", "#787878"
# The records in file order, with colour and height.
LOOKS = {"fileHeader": (ENVELOPE, 40), "auxiliaryHeader": (ENVELOPE, 40), "vpdHeader": (BLOCK, 64), "ssdHeader": (BLOCK, 40),
         "fill": (ZEROS, 40), "longName": (BLOCK, 40), "sectionHeader": (ENVELOPE, 40), "lid": (LID, 64)}
LENGTHS = {"longName": "n + 1", "lid": "S"}
# The fields that hold offsets, by record: name, place that the offset leads to, distance of the line from the stack.
POINTERS = {"fileHeader": [("symbolTableOffset", "end", 52)],
            "vpdHeader": [("vpdBodyOffset", "body", 40), ("ssdOffset", "ssdHeader", 16)],
            "ssdHeader": [("longName.ruNameOffset", "body", 28)],
            "sectionHeader": [("offsetToRawData", "lid", 16)]}

records = {record["name"]: record for record in json.load(sys.stdin)["records"]}
drawing = []


def text(x, y, words, kind, anchor="start", more=""):
    drawing.append(f'<text class="{kind}" x="{x}" y="{y}" text-anchor="{anchor}"{more}>{words}</text>')


def line(path, more=""):
    drawing.append(f'<path d="{path}"{more}/>')


def draw(is_long):
    """One stack, with its offsets on the inner side and its arrows on the outer one."""
    left = RIGHT if is_long else MARGIN
    outer, inner, outward = (left + BOX, left, 1) if is_long else (left, left + BOX, -1)
    text(left + BOX // 2, 18, "long base name, n &gt; 8" if is_long else "short base name, n ≤ 8", "head", "middle")
    y, offset, rest = TOP, 0, ""
    places, sources = {}, []
    for name, (colour, height) in LOOKS.items():
        if name == "longName" and not is_long:
            places["body"] = y
            continue
        if name == "lid" and not is_long:
            height += LOOKS["longName"][1]  # both stacks end side by side
        places[name] = y
        drawing.append(f'<rect x="{left}" y="{y}" width="{BOX}" height="{height - 2}" rx="4" fill="{colour}"/>')
        text(left + 10, y + 17, name, "name")
        text(left + 10, y + 31, f"{LENGTHS.get(name, records[name]['length'])} bytes", "inside")
        text(inner - outward * 6, y + 9, f"{offset}{rest}", "", "end" if is_long else "start")
        fields = {field["name"]: offset + field["offset"] for field in records[name]["fields"]
                  if field.get("longName", is_long) == is_long}
        row = y + 31
        for field, target, lane in POINTERS.get(name, []):
            if field in fields:
                text(left + BOX - 10, row, f"{field.removeprefix('longName.')} at {fields[field]}{rest}", "inside", "end")
                sources.append((row - 4, target, lane))
                row += 21
        offset += records[name]["length"]
        if name == "longName":
            offset, rest = offset + 1, " + n"
        y += height
    places["end"] = y - 2
    text(inner - outward * 6, y, f"{offset}{rest} + S", "", "end" if is_long else "start")
    places.setdefault("body", places.get("longName"))
    for start, target, lane in sources:
        side, end, bend = outer + outward * lane, places[target], outward * 5
        line(f"M{outer} {start}H{side - bend}q{bend} 0 {bend} 5V{end - 5}q0 5 {-bend} 5H{outer + outward * 2}",
             ' marker-end="url(#tip)"')
    block = inner - outward * 62
    line(f"M{block + outward * 5} {places['vpdHeader'] + 1}h{-outward * 5}V{places['sectionHeader'] - 3}h{outward * 5}")
    middle = (places["vpdHeader"] + places["sectionHeader"]) // 2
    x = block - outward * 8 + (0 if is_long else 9)
    text(x, middle, f"header block, H = {'513 + n' if is_long else 512}", "", "middle", f' transform="rotate(-90 {x} {middle})"')
    return y


height = max(draw(False), draw(True)) + 10
print(f"""<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" width="{WIDTH}" height="{height}" role="img">
<title>The records of an image</title>
<style>
text {{ font: 12px system-ui, "DejaVu Sans", sans-serif; fill: {LINE} }}
text.head {{ font-weight: 600 }}
text.name {{ font-size: 13px; font-weight: 600; fill: #fff }}
text.inside {{ font-size: 11px; fill: #fff }}
path {{ fill: none; stroke: {LINE}; stroke-width: 1.3 }}
path.tip {{ fill: {LINE}; stroke: none }}
</style>
<defs><marker id="tip" markerWidth="8" markerHeight="8" refX="7" refY="4" orient="auto" markerUnits="userSpaceOnUse">
<path class="tip" d="M0 0L8 4L0 8z"/></marker></defs>""", *drawing, "</svg>", sep="\n")
