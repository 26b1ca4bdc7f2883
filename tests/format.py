#!/usr/bin/python3
"""Whether docs/format.md, its picture and the descriptions in share/kelvra/ are true, by what other readers of images
say: format.py KELVRA KELVRA-IMAGE. Without node and npm, file or llvm-readobj their part is skipped; 77 without all.
"""
import json
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGE = (ROOT / "docs/format.md").read_text()
SEED = 20260314
RANDOM_IMAGES = 200


def run(*words, **options):
    return subprocess.run(words, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, **options).stdout


def needs(*commands):
    missing = [command for command in commands if not shutil.which(command)]
    return unittest.skipIf(missing, f"not there: {', '.join(missing)}")


def random_value(rng, row):
    if "values" in row:
        return rng.choice(row["values"])["name"].encode()
    if row["keyword"] == "RULOADID":
        return b"%08x" % rng.choice([0, rng.getrandbits(32)])
    return bytes(rng.choice([*range(0x21, 0x7F), 0x80, 0xE9]) for _ in range(rng.randint(1, 10)))


def random_lid(rng, size, version, header_length):
    """Random bytes, but for what a LID's header must have; version 0 stands for no header."""
    lid = rng.randbytes(size)
    date = f"{rng.randint(1000, 9998)}{rng.randint(1, 12):02}{rng.randint(1, 28):02}{rng.randint(0, 23):02}59"
    phylum_length = rng.choice([0, 1, 300]).to_bytes(2, "big")
    header = b"\x02\x22\0" + bytes([version]) + rng.randbytes(4) + bytes.fromhex(date) + rng.randbytes(10)
    header += header_length.to_bytes(4, "big") + rng.randbytes(74) + phylum_length
    return header[:len(lid)] + lid[len(header):] if version else lid


class FormatTest(unittest.TestCase):
    kelvra = image = ""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="kelvra-format-")
        cls.addClassCleanup(cls.folder.cleanup)
        cls.path = pathlib.Path(cls.folder.name)
        shutil.copytree(ROOT / "examples", cls.path, dirs_exist_ok=True)
        shutil.copy(cls.path / "part.lidhdr", cls.path / "Long_name.lidhdr")
        (cls.path / "qel.vpdinfo").touch()
        cls.table = run(cls.image, "fields", "--json")
        records = json.loads(cls.table)["records"]
        cls.rows = {f"{record['name']}.{row['name']}": row for record in records for row in record["fields"]}
        cls.images, cls.lids = [], []
        cls.make("part.lidhdr", "part.kesp", "UTC0")
        cls.make("Long_name.lidhdr", "part.kesp", "UTC0")
        cls.short, cls.long = ((cls.path / name).read_bytes() for name in cls.images)
        cls.make_random_images()
        cls.records = [[*image["records"], *image["records"][-1].get("records", [])]
                       for image in json.loads(run(cls.image, "show", "--json", *cls.images, cwd=cls.path))["images"]]
        cls.shown = [{f"{record['name']}.{name}": field for record in each for name, field in record["fields"].items()}
                     for each in cls.records]

    @classmethod
    def make(cls, source, lid, zone):
        name = f"{len(cls.images)}.ruhx"
        run(cls.kelvra, "-r", source, "-l", lid, "-o", name, cwd=cls.path, env={"TZ": zone})
        cls.images.append(name)
        cls.lids.append((cls.path / lid).read_bytes())

    @classmethod
    def make_random_images(cls):
        print(f"seed {SEED}")
        rng = random.Random(SEED)
        set_by = {row["keyword"] for row in cls.rows.values() if "keyword" in row}
        keywords = [row for row in json.loads(cls.table)["keywords"] if row["keyword"] in set_by]
        for i in range(RANDOM_IMAGES):
            length = rng.choice([1, 7, 8, 9, 10, 40, 240])
            name = os.fsdecode(bytes(rng.choice([*b"Az09_-", 0x80, 0xE9]) for _ in range(length)))
            name += rng.choice([".lidhdr", ".lidhdr", ".pfginfo", ".sfginfo", ".vpdinfo"])
            given = [row for row in keywords if rng.random() < 0.6 or length > 8 and row["keyword"] == "RUNAME"]
            lines = [b":%s.%s\n" % (row["keyword"].encode(), random_value(rng, row)) for row in given]
            (cls.path / name).write_bytes(b"".join(lines))
            lid = random_lid(rng, rng.choice([0, 1, 103, 104, 105, 3000]), rng.randrange(4), rng.getrandbits(32))
            (cls.path / f"{i}.lid").write_bytes(lid)
            os.utime(cls.path / f"{i}.lid", (0, rng.getrandbits(33)))
            cls.make(name, f"{i}.lid", rng.choice(["UTC0", "XXX-5:30", "YYY11"]))
        for length in range(106):  # a header of version 2 may end anywhere
            (cls.path / "short.lid").write_bytes(random_lid(rng, 120, 2, length))
            cls.make("part.lidhdr", "short.lid", "UTC0")

    def test_the_page_has_each_field(self):
        sections = {text.split("\n")[0]: text.replace(",\n", ", ") for text in PAGE.split("### ")}
        self.assertEqual(len(re.findall(r"^\| [\dn]+ \| .* `[\w.]+` \| \w+ \|", PAGE, re.M)), len(self.rows))
        fixed = 0
        for name, row in self.rows.items():
            record, field = name.split(".", 1)
            start = f"| {row['offset']} | {row['length']} | "
            start = {"longName.baseName": "| 0 | n | ", "longName.terminator": "| n | 1 | ",
                     "lidHeader.phylumData": "| 104 | m | "}.get(name, start)
            if "bit" in row:
                last = row["bit"] + row["width"] - 1
                mask = ((1 << row["width"]) - 1) << (8 * row["length"] - 1 - last)
                start += f"{row['bit']}-{last}".removeprefix(f"{last}-") + f" | `{mask:0{2 * row['length']}X}` | "
            start += f"`{field}` | {row['kind']} | "
            (line,) = [line for line in sections[record].splitlines() if line.startswith(start)]
            if values := sorted(row.get("values", []), key=lambda value: value["code"]):
                stated = sections[record] if "see below" in line else line
                words = re.escape(", ".join(f"{value['code']} `{value['name']}`" for value in values))
                self.assertRegex(stated, rf"[|:] {words}( \||;|\.\n)")
            if match := re.match(r"(\d+)(,| \|)", line.removeprefix(start)):
                fixed += 1
                self.assertEqual(int(match[1]), int(self.shown[0][name]["value"]), name)
        self.assertEqual(fixed, 23)

    def test_the_page_has_the_records_places(self):
        lines = re.findall(r"^\| `(\w+)` \| ([\dH +]+) \| (?:0, or )?([\dnS +]+) \|$", PAGE, re.M)
        places = [(name, *(eval(text, {"n": 9, "H": 522, "S": 287}) for text in texts)) for name, *texts in lines]
        self.assertEqual(places, [(each["name"], each["offset"], each["length"]) for each in self.records[1][:-1]])

    def test_the_page_has_the_examples_bytes(self):
        first, second = ([(int(offset), bytes(int(digits[5:])) if "x" in digits else bytes.fromhex(digits))
                          for offset, digits in re.findall(r"^ {4,6}(\d+)  (00 x \d+|(?:[0-9A-F]{2} ?)+)", text, re.M)]
                         for text in PAGE.split("With the same sources"))
        front = bytearray()
        for offset, content in first:
            self.assertEqual(offset, len(front))
            front += content
        self.assertEqual((len(front), front), (708, self.short[:708]))
        front[560:560] = bytes(10)  # what a long name of 9 characters takes
        for offset, content in second:
            front[offset:offset + len(content)] = content
        self.assertEqual(front, self.long[:718])

    def test_the_page_has_the_characters(self):
        cells = re.findall(r"^    [0-9A-F]x   ((?:[0-9A-F-]{2} ?){16})$", PAGE, re.M)
        table = " ".join(cells).split()
        # Of each of these kelvra takes the lower 7 bits.
        source = os.fsdecode(bytes(range(0x80, 0x100))) + ".lidhdr"
        (self.path / source).write_text(":RUNAME.X\n")
        run(self.kelvra, "-r", source, "-l", "part.kesp", "-o", "all.ruhx", cwd=self.path)
        written = (self.path / "all.ruhx").read_bytes()[560:688]
        self.assertEqual([table[byte] for byte in written], [f"{code:02X}" for code in range(128)])
        self.assertEqual((len(table), table.count("--")), (256, 128))

    def test_the_picture_is_drawn_from_the_fields(self):
        drawn = run(ROOT / "scripts/layout.py", input=self.table)
        self.assertEqual(drawn.decode(), (ROOT / "docs/format.svg").read_text())

    @needs("node", "npm")
    def test_kaitai_struct_reads_the_same(self):
        folder = shutil.copytree(ROOT / "tests/kaitai", self.path / "kaitai")
        npm = subprocess.run(["npm", "ci", "--prefer-offline", "--ignore-scripts"], cwd=folder, capture_output=True, text=True)
        if re.search("ENOTFOUND|EAI_AGAIN|ECONNREFUSED|ETIMEDOUT", npm.stderr):
            self.skipTest("npm reaches no registry")
        self.assertEqual(npm.returncode, 0, npm.stderr)
        result = json.loads(run("node", folder / "read.js", ROOT / "share/kelvra/ruhx.ksy", *self.images, cwd=self.path))
        for name, shown, read, lid in zip(self.images, self.shown, result["images"], self.lids, strict=True):
            wanted = {"lid": [shown["sectionHeader.offsetToRawData"]["value"], lid.hex()]}
            for field, found in shown.items():
                row, key = self.rows[field], field.lower().replace("fill.fill", "fill")
                # A field that is cut is not there; of the phylum data there is what the LID has.
                if found["value"] is not None or row["name"] == "phylumData" and found["raw"]:
                    is_number = row["kind"] in ("number", "stamp", "code") or "bit" in row
                    wanted[key] = [found["offset"], int(found["value"]) if is_number else found["raw"]]
                if "bit" in row:
                    read[key][0] = found["offset"]  # debug mode does not tell it
            self.assertEqual(read, wanted, name)
        enums = {name.lower(): {int(code): word for code, word in values.items() if code.isdigit()}
                 for name, values in result["enums"]}
        self.assertEqual(enums["rudestination"].pop(0), "NONE")
        for row in self.rows.values():
            values = {value["code"]: value["name"].strip("*") for value in reversed(row.get("values", []))}
            if values and "Y" not in values.values():
                self.assertEqual(enums.pop(row["name"].lower().split(".")[-1]), values)
        self.assertEqual(enums, {})

    @needs("file")
    def test_file_names_images_and_nothing_else(self):
        others = []
        for i in (0, 1, 3, 21, 23, 73, 75, 194, 203):  # bytes that tell an image
            others.append(f"{i}.other")
            (self.path / others[-1]).write_bytes(self.short[:i] + bytes([self.short[i] ^ 1]) + self.short[i + 1:])
        ours = str(ROOT / "share/kelvra/ruhx.magic")
        system = re.search("magic file from (.*)", run("file", "--version", text=True))[1]
        for magic in (ours, f"{ours}:{system}"):
            said = run("file", "-b", "-m", magic, *self.images, cwd=self.path, text=True).splitlines()
            for line, shown, lid in zip(said, self.shown, self.lids, strict=True):
                digits = shown["vpdHeader.ruLoadId"]["value"].upper()
                load_id = "no load ID" if digits == "00000000" else f"load ID {digits}"
                self.assertEqual(line, f"kelvra VPD load module image, {load_id}, LID of {len(lid)} bytes")
            self.assertNotIn("kelvra", run("file", "-b", "-m", magic, *others, cwd=self.path, text=True))

    @needs("llvm-readobj")
    def test_llvm_readobj_reads_the_same(self):
        for name, shown in zip(self.images[:30], self.shown, strict=False):
            said = run("llvm-readobj", "--file-header", "--section-headers", name, cwd=self.path)
            self.assertIn(b"Name: K\xa3\x85\xa7\xa3\n", said)  # .text in EBCDIC, as it stands
            read = re.findall(rb"^ +(?!Index)\w+: .*?(0x[0-9A-F]+|\d+)\)?$", said, re.M)
            wanted = [found["value"] for field, found in shown.items()
                      if field.startswith(("fileHeader.", "sectionHeader.")) and field != "sectionHeader.name"]
            self.assertEqual([int(number, 0) for number in read], wanted, name)


if __name__ == "__main__":
    FormatTest.kelvra, FormatTest.image = map(os.path.abspath, sys.argv[1:3])
    result = unittest.main(argv=sys.argv[:1], verbosity=2, exit=False).result
    sys.exit(1 if not result.wasSuccessful() else 77 if len(result.skipped) == 3 else 0)
