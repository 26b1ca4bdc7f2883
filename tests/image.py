#!/usr/bin/python3
"""kelvra-image on images that kelvra makes: image.py KELVRA KELVRA-IMAGE [STEP]. All JSON is held against the schema.

With a step, only every so many bytes are changed and lengths cut.
"""
import collections
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import jsonschema

ROOT = pathlib.Path(__file__).resolve().parent.parent
SCHEMA = jsonschema.Draft202012Validator(json.loads((ROOT / "share/kelvra/kelvra-image.schema.json").read_text()))
EXAMPLE = ["-l", "part.kesp", "-r", "part.lidhdr"]
FRONT = 600  # bytes in front of the example's LID of 287
CHECKS = ("file-length file-header auxiliary-header vpd-header ssd-header fill long-name section-header reserved-bytes "
          "date-time build-time codes flags text-fields payload inputs").split()

# Fields of the example as they stand in its image: offset, digits, value, names.
FIELDS = [
    ("fileHeader.timeDate", 4, "69b529a8", 1773480360, None),  # 2026-03-14 09:26 UTC
    ("fileHeader.symbolTableOffset", 8, "00000377", 887, None),
    ("fileHeader.numberOfOptionalHeaderBytes", 16, "021c", 540, None),
    ("auxiliaryHeader.versionStamp", 22, "0010", 16, None),
    ("vpdHeader.ruLength", 48, "0000011f", 287, None),
    ("vpdHeader.reserved2", 64, "00" * 9, 0, None),
    ("vpdHeader.ruName", 56, "c3e3d9d3f0f14040", "CTRL01", None),
    ("vpdHeader.ruLoadId", 76, "81e00142", "81e00142", None),
    ("vpdHeader.productId", 85, "c3e3d3f2f0f2f6", "CTL2026", None),
    ("vpdHeader.flags1.changeLid", 104, "14", True, ["Y"]),
    ("vpdHeader.flags1.selfLoad", 104, "14", False, ["N"]),
    ("vpdHeader.flags1.flashLoad", 104, "14", True, ["Y"]),
    ("vpdHeader.flags1.bodyType", 104, "14", 0, ["CODE"]),
    ("vpdHeader.flags1.reserved4", 106, "0020", 0, None),
    ("vpdHeader.flags1.loadIdPresent", 107, "20", True, None),
    ("vpdHeader.flags2.softwareType", 108, "80", True, ["MCG"]),
    ("vpdHeader.flags2.developedForVelmor", 109, "40", True, ["N"]),
    ("vpdHeader.developmentLabId", 110, "d2f1", "K1", None),
    ("vpdHeader.ruDate", 112, "f2f0f2f6f0f3f1f4", "20260314", None),
    ("vpdHeader.releaseModificationLevel", 144, "d4f0f0f3", "M003", None),
    ("vpdHeader.vpdBodyOffset", 192, "00000200", 512, None),
    ("ssdHeader.ruName", 288, "978199a300000000", "part", None),
    ("ssdHeader.ruDestination", 297, "81", 129, ["IOP1"]),
    ("ssdHeader.ssdModel", 301, "03", 3, ["HARN"]),
    ("ssdHeader.allowBreakpoints", 302, "01", 1, ["Y"]),
    ("fill.fill", 320, "00" * 240, 0, None),
    ("sectionHeader.name", 560, "4ba385a7a3000000", ".text", None),
    ("sectionHeader.offsetToRawData", 580, "00000258", 600, None),
    ("lidHeader.lidNumber", 604, "81e00142", "81e00142", None),
    ("lidHeader.lidInfo", 632, b"Example controller, level 1".ljust(64, b"\0").hex(), "Example controller, level 1", None),
    ("lidHeader.phylumData", 704, "f0000000", "f0000000", None),
]

# Bytes put into the example's image, and the checks that see them without its inputs.
FAULTS = [
    (2, "0002", {"file-header": "fileHeader.numberOfSections at 2 is 2, not 1"}),
    (8, "00000378", {"file-header": "fileHeader.symbolTableOffset at 8 is 888, not 887"}),
    (16, "021d", {"file-header": "fileHeader.numberOfOptionalHeaderBytes at 16 is 541, not 540"}),
    (44, "01000000", {"auxiliary-header": "auxiliaryHeader.dataStart at 44 is 16777216, not 0"}),
    (48, "00000120", {"vpd-header": "vpdHeader.ruLength at 48 is 288, not 287"}),
    (75, "c5", {"vpd-header": 'vpdHeader.vpdConstant at 73 is "VPE", not "VPD"'}),
    (55, "07", {"reserved-bytes": "vpdHeader.reserved1 at 52 is 00000007, not zeros"}),
    (104, "94", {"reserved-bytes": "vpdHeader.flags1.reserved1 at 104 is 1, not zeros"}),
    (104, "54", {"flags": "vpdHeader.flags1.hardwareDependency at 104 is Y, not N"}),
    (107, "00", {"flags": "vpdHeader.flags1.loadIdPresent at 107 is false, not true"}),
    (296, "01", {"flags": "ssdHeader.ruDestination at 297 is IOP1, not 0 (none), as the unit bypasses the link/loader"}),
    (297, "ff", {"codes": "ssdHeader.ruDestination at 297 is 255 (no name), no value has this code"}),
    (300, "01", {"ssd-header": "ssdHeader.ruTypeOption at 300 is VORN, not LID"}),
    (559, "01", {"fill": "fill.fill at 320 is " + "00" * 239 + "01, not zeros"}),
    (564, "00", {"section-header": 'sectionHeader.name at 560 is ".tex", not ".text"'}),
    (118, "f3f2", {"date-time": 'vpdHeader.ruDate at 112 is "20260332", which is no date'}),
    (119, "f5", {"build-time": "fileHeader.timeDate at 4 is 1773480360, which is 2026-03-14 09:26:00 UTC; "
                          "the local time 2026-03-15 09:26:00 is UTC+24:00"}),
    (58, "41", {"text-fields": 'vpdHeader.ruName at 56 is "CT\\xFFL01", not a text that kelvra writes: c3e341d3f0f14040'}),
]


class ImageTest(unittest.TestCase):
    kelvra = image = ""
    step = 1
    count = collections.Counter()

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(prefix="kelvra-image-")
        self.addCleanup(self.folder.cleanup)
        for name in ("part.kesp", "part.lidhdr", "controller.vpdinfo"):
            shutil.copy(ROOT / "examples" / name, self.folder.name)
        self.path = pathlib.Path(self.folder.name)
        self.make("part")
        self.bytes = (self.path / "part.ruhx").read_bytes()

    def make(self, name, zone="UTC0"):
        subprocess.run([self.kelvra, "-l", name + ".kesp"], cwd=self.path, check=True, stderr=subprocess.DEVNULL,
                       env={"TZ": zone})

    def run_image(self, *words, zone="UTC0"):
        return subprocess.run([self.image, *words], cwd=self.path, capture_output=True, text=True, env={"TZ": zone})

    def json(self, status, *words, zone="UTC0"):
        run = self.run_image(*words, "--json", zone=zone)
        self.assertEqual(run.returncode, status, run.stderr)
        document = json.loads(run.stdout)
        # Validating takes longer than all else: of hundreds of the same kind, the first ones and some more.
        self.count[words[0]] = count = self.count[words[0]] + 1
        if count < 10 or count % 100 == 0:
            SCHEMA.validate(document)
        return document

    def changed(self, content):
        (self.path / "changed.ruhx").write_bytes(content)
        return "changed.ruhx"

    def failures(self, status, *words, zone="UTC0"):
        image = self.json(status, "verify", *words, zone=zone)["images"][0]
        return [check for check in image["checks"] if not check["ok"]]

    def test_show_gives_each_field_its_place_bytes_and_value(self):
        image = self.json(0, "show", "part.ruhx")["images"][0]
        records = image["records"] + image["records"][-1]["records"]
        shown = {f"{r['name']}.{name}": field for r in records for name, field in r["fields"].items()}
        for name, offset, raw, value, names in FIELDS:
            with self.subTest(name):
                field = shown[name]
                self.assertEqual((field["offset"], field["length"]), (offset, len(raw) // 2))
                self.assertEqual((field["raw"], field["value"], field.get("names")), (raw, value, names))
                self.assertIs(type(field["value"]), type(value))
        self.assertEqual([(r["name"], r["offset"], r["length"]) for r in records],
                         [("fileHeader", 0, 20), ("auxiliaryHeader", 20, 28), ("vpdHeader", 48, 208),
                          ("ssdHeader", 256, 64), ("fill", 320, 240), ("sectionHeader", 560, 40), ("lid", 600, 287),
                          ("lidHeader", 600, 108)])
        self.assertEqual(shown["vpdHeader.ruName"]["keyword"], "RUNAME")

    def test_text_has_a_row_a_field(self):
        lines = self.run_image("show", "part.ruhx").stdout.splitlines()
        for line in ("part.ruhx: 887 bytes", "vpdHeader, 208 bytes at 48", "lid, 287 bytes at 600",
                     "       4     4  69b529a8" + " " * 26 + "timeDate" + " " * 20 +
                     "1773480360 (2026-03-14 09:26:00 UTC)",
                     "     297     1  81" + " " * 32 + "ruDestination" + " " * 15 + "IOP1  RUDEST",
                     "     320   240" + " " * 36 + "fill" + " " * 24 + "zeros"):
            self.assertIn(line, lines)
        self.assertEqual(self.run_image("list", "part.ruhx").stdout,
                         "81e00142  CTRL01    V1R2  2026-03-14 09:26:00         287  part.ruhx\n")

    def test_a_long_base_name_stands_after_the_fill(self):
        for name in ("kesp", "lidhdr"):
            shutil.copy(self.path / f"part.{name}", self.path / f"Long_name.{name}")
        self.make("Long_name")
        records = {r["name"]: r for r in self.json(0, "show", "Long_name.ruhx")["images"][0]["records"]}
        offset = records["ssdHeader"]["fields"]["longName.ruNameOffset"]
        self.assertEqual((offset["offset"], offset["value"]), (292, 512))
        name = records["longName"]["fields"]["baseName"]
        self.assertEqual((name["offset"], name["raw"], name["value"]), (560, "d39695876d95819485", "Long_name"))
        self.assertEqual(records["longName"]["fields"]["terminator"]["offset"], 569)
        self.assertEqual((records["sectionHeader"]["offset"], records["lid"]["offset"]), (570, 610))
        self.assertEqual(self.failures(0, "Long_name.ruhx", "-l", "part.kesp", "-r", "Long_name.lidhdr"), [])

    def test_a_lid_header_ends_with_its_lid(self):
        example = (self.path / "part.kesp").read_bytes()
        # Its phylum data would go on after the LID; a LID of 103 bytes has no header, whatever follows the image.
        for size, length in ((123, 123), (104, 104), (103, None), (0, None)):
            lid = bytearray(example[:size])
            lid[102:104] = b"\x7f\xff"[:max(0, size - 102)]
            (self.path / "part.kesp").write_bytes(lid)
            self.make("part")
            with (self.path / "part.ruhx").open("ab") as image:
                image.write(example)
            (*_, last) = self.json(1, "show", "part.ruhx")["images"][0]["records"]
            with self.subTest(size):
                self.assertEqual((last["name"], last["length"]), ("lid", size))
                self.assertEqual([record["length"] for record in last.get("records", [])], [length] if length else [])

    def test_a_base_name_may_encode_to_the_section_headers_name(self):
        source = os.fsdecode(b".text\x80\x80\x80\x80.lidhdr")
        (self.path / source).write_text(":RUNAME.X\n:VPDINFONM.controller\n")
        subprocess.run([self.kelvra, "-l", "part.kesp", "-r", source], cwd=self.path, check=True, stderr=subprocess.DEVNULL)
        self.assertEqual(self.failures(0, "part.ruhx", "-l", "part.kesp", "-r", source), [])

    def test_each_changed_byte_is_named(self):
        for i in range(2, FRONT, self.step):
            content = bytearray(self.bytes)
            content[i] ^= 0xFF
            name = self.changed(content)
            with self.subTest(byte=i):
                found = [f for f in self.failures(1, name, *EXAMPLE) if f["check"] == "inputs"]
                self.assertTrue(any(f["offset"] <= i < f["offset"] + 240 for f in found), found)
                self.assertNotEqual(self.json(1, "diff", "part.ruhx", name)["differences"], [])
        content[FRONT + 7] ^= 1
        message = self.failures(1, self.changed(self.bytes[:FRONT + 7] + b"?" + self.bytes[FRONT + 8:]), *EXAMPLE)
        self.assertEqual([(f["check"], f["offset"]) for f in message], [("payload", FRONT + 7)])

    def test_cut_and_longer_images(self):
        for length in (*range(0, len(self.bytes), self.step), len(self.bytes) + 1):
            name = self.changed((self.bytes + b"\0")[:length])
            status = 2 if length < 20 else 1
            with self.subTest(length=length):
                image = self.json(status, "show", name)["images"][0]
                self.assertEqual(image["status"], "unreadable" if status == 2 else "fault")
                if status == 1:
                    record = image["records"][-1]
                    held = record["offset"] + record["length"] - record.get("missing", 0)
                    self.assertEqual(held, min(length, 887))
                    self.assertIn("file-length", [f["check"] for f in self.failures(1, name)])

    def test_checks(self):
        seen = {"file-length", "long-name", "payload", "inputs"}  # by the tests beside this one
        for offset, digits, expected in FAULTS:
            content = bytearray(self.bytes)
            content[offset:offset + len(digits) // 2] = bytes.fromhex(digits)
            with self.subTest(offset=offset):
                run = self.run_image("verify", self.changed(content))
                also = "build-time, " if "date-time" in expected else ""
                lines = [f"changed.ruhx: {check}: {text}\n" for check, text in expected.items()]
                self.assertEqual(run.stdout, "".join(lines) + f"changed.ruhx: not checked: {also}payload, inputs\n")
                self.assertEqual(run.returncode, 1)
            seen |= set(expected)
        self.assertEqual(seen, set(CHECKS))
        self.assertEqual([row["check"] for row in self.json(0, "fields")["checks"]], CHECKS)

    def test_inputs_that_make_another_image(self):
        source = self.path / "part.lidhdr"
        source.write_text(source.read_text() + ":RUNAME.OTHER\n")
        (failure,) = self.failures(1, "part.ruhx", *EXAMPLE)
        self.assertEqual((failure["field"], failure["found"], failure["expected"]), ("vpdHeader.ruName", "CTRL01", "OTHER"))
        source.write_text(":VPDINFONM.controller\n:RUDEST.NOWHERE\n")
        (failure,) = self.failures(1, "part.ruhx", *EXAMPLE)
        self.assertIn("kelvra refuses them with code 39", failure["message"])
        source.write_text(":VPDINFONM.controller\n:RUDEST.\x1b[31m\n")
        self.assertIn("file is \\x1B[31m.", self.run_image("verify", "part.ruhx", *EXAMPLE).stdout)
        source.unlink()
        run = self.run_image("verify", "part.ruhx", *EXAMPLE)
        self.assertEqual((run.returncode, run.stderr),
                         (2, "kelvra-image: part.lidhdr: cannot open: No such file or directory\n"))

    def test_a_lid_without_header_takes_the_images_time(self):
        (self.path / "part.kesp").write_bytes(b"no header")
        os.utime(self.path / "part.kesp", (0, 1690000000))
        self.make("part")
        os.utime(self.path / "part.kesp", (0, 1690000001))
        self.assertEqual(self.failures(0, "part.ruhx", *EXAMPLE), [])
        self.assertIn("the image's stamp is taken", self.run_image("verify", "part.ruhx", *EXAMPLE).stdout)
        fields = {f["field"] for f in self.failures(1, "part.ruhx", *EXAMPLE, "--timestamp", "1690000001")}
        self.assertEqual(fields, {"fileHeader.timeDate", "vpdHeader.ruTime"})
        fields = {f["field"] for f in self.failures(1, "part.ruhx", *EXAMPLE, zone="XXX-1")}
        self.assertEqual(fields, {"vpdHeader.ruTime"})

    def test_diff_tells_what_differs_and_why(self):
        shutil.copy(self.path / "part.ruhx", self.path / "old.ruhx")
        run = self.run_image("diff", "old.ruhx", "part.ruhx")
        self.assertEqual((run.returncode, run.stdout), (0, ""))
        self.make("part", zone="XXX-1")
        run = self.run_image("diff", "old.ruhx", "part.ruhx")
        self.assertEqual(run.stdout, "fileHeader.timeDate: 1773480360 -> 1773476760\nLID: the same\n"
                                     "note: built in two time zones: UTC+00:00 and UTC+01:00\n")
        for name, end in (("one.ruhx", b"\0"), ("two.ruhx", b"\1")):  # within a flag of two bytes
            (self.path / name).write_bytes(self.bytes[:106] + end)
        (difference,) = self.json(1, "diff", "one.ruhx", "two.ruhx")["differences"]
        self.assertEqual((difference["field"], difference["values"]), ("vpdHeader.flags1.reserved4", ["00", "01"]))
        (self.path / "longer.ruhx").write_bytes(self.bytes[:700] + b"X" + self.bytes[701:] + b"Y")
        result = self.json(1, "diff", "old.ruhx", "longer.ruhx")
        self.assertEqual(result["payload"], {"same": False, "lengths": [287, 288], "first": 100})

    def test_no_field_steers_a_terminal(self):
        name = self.changed(self.bytes[:56] + b"\x27" + self.bytes[57:])  # ESC in the RU name
        for command in ("show", "list", "verify", "diff"):
            with self.subTest(command):
                printed = self.run_image(command, *["part.ruhx"] * (command == "diff"), name).stdout
                self.assertIn("\\x1BTRL01", printed)
                self.assertNotIn("\x1b", printed)

    def test_extract_gives_back_the_lid(self):
        old = self.path / "old.kesp"
        old.write_bytes(b"old")
        old.chmod(0o640)
        for lid in (b"", (self.path / "part.kesp").read_bytes(), bytes(range(256)) * 3000):
            (self.path / "other.kesp").write_bytes(lid)
            shutil.copy(self.path / "part.lidhdr", self.path / "other.lidhdr")
            self.make("other")
            run = self.run_image("extract", "other.ruhx", "-o", "old.kesp")
            self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""))
            self.assertEqual(old.read_bytes(), lid)
        (self.path / "other.kesp").write_bytes(lid[:500000] + b"!" + lid[500001:])
        (failure,) = self.failures(1, "other.ruhx", "-l", "other.kesp")
        self.assertEqual(failure["offset"], 600 + 500000)
        self.assertEqual(old.stat().st_mode & 0o777, 0o640)
        for image, lid, status, reason in (
                (self.changed(self.bytes[:-1]), "new", 1, "changed.ruhx: not whole, nothing is extracted; verify tells more"),
                ("part.ruhx", "part.ruhx", 2, "part.ruhx: cannot write: it is the image"),
                ("part.ruhx", "none/new", 2, "none/new: cannot create: No such file or directory"),
                ("part.ruhx", "/dev/full", 2, "/dev/full: cannot write: No space left on device")):
            with self.subTest(lid):
                run = self.run_image("extract", image, "-o", lid)
                self.assertEqual((run.returncode, run.stderr), (status, f"kelvra-image: {reason}\n"))
        self.assertEqual((self.path / "part.ruhx").read_bytes(), self.bytes)
        self.assertFalse((self.path / "new").exists())

    def test_fields_and_keywords_are_one_set(self):
        tables = self.json(0, "fields")
        keywords = {row["keyword"] for row in tables["keywords"]}
        fields = {f["keyword"] for r in tables["records"] for f in r["fields"] if "keyword" in f}
        self.assertEqual(keywords - fields, {"VPDINFONM", "INSTRSET", "NUCSEQCTL"})
        self.assertEqual(fields - keywords, set())

    def test_lint_and_deps_have_their_json(self):
        self.assertEqual(self.json(0, "lint", *EXAMPLE)["findings"], [])
        self.assertEqual(self.json(0, "deps", *EXAMPLE),
                         {"kelvraImage": 1, "command": "deps", "output": "part.ruhx",
                          "inputs": ["part.kesp", "part.lidhdr", "controller.vpdinfo"]})
        with (self.path / "part.lidhdr").open("a") as source:
            source.write(":RUDEST.IOPP\n:RUNMAE.X\n")
        findings = self.json(1, "lint", *EXAMPLE)["findings"]
        self.assertEqual([(f["rule"], f["line"], f.get("keyword"), f.get("code")) for f in findings],
                         [("refused-value", 20, "RUDEST", 39), ("repeated-keyword", 20, "RUDEST", None),
                          ("unknown-keyword", 21, "RUNAME", None)])

    def test_what_cannot_be_done(self):
        (self.path / "empty").touch()
        os.mkfifo(self.path / "pipe.vpdinfo")
        (self.path / "piped.lidhdr").write_text(":VPDINFONM.pipe\n")
        (self.path / "memory.lidhdr").symlink_to("/proc/self/mem")
        for words, reason in (
                (["show", "nothing"], "nothing: cannot open: No such file or directory"),
                (["list", "."], ".: cannot read: Is a directory"),
                (["verify", "empty"], "empty: not an image: shorter than a file header"),
                (["diff", "part.ruhx", "part.kesp"], "part.kesp: not an image: another magic number"),
                (["show"], "images is required; --help tells more"),
                (["nonsense"], "nonsense: no such command; --help tells more"),
                (["show", "x", "--x=\x1b"], "The following argument was not expected: --x=\\x1B; --help tells more"),
                (["lint", "-l", "x", "-r", "x.sfginfo", "--vpdinfo", "y"],
                 "y: no place for a VPDINFO source: x.sfginfo is read alone"),
                (["lint", "--json"], "lint: needs -l or -r"),
                (["verify", "part.ruhx", "part.ruhx", "-l", "part.kesp", "-r", "piped.lidhdr"],
                 "pipe.vpdinfo: not a regular file, and to be read more than once"),
                (["verify", "part.ruhx", "-l", "part.kesp", "-r", "memory.lidhdr"],
                 "memory.lidhdr: cannot read: Input/output error"),
                (["build", "-l", ""], "--lid: an empty file name; --help tells more"),
                (["build", "-l", "x", "--timestamp", "010x"], "--timestamp: not a number of seconds: 010x; --help tells more"),
                (["verify", "part.ruhx", "-l", "no\x1b\nne.kesp"],
                 "no\\x1B\\x0Ane.kesp: cannot open: No such file or directory")):
            with self.subTest(words):
                run = self.run_image(*words)
                self.assertEqual((run.returncode, run.stderr), (2, f"kelvra-image: {reason}\n"))
        image = self.json(2, "verify", "part.ruhx", "-l", "none.kesp")["images"][0]
        self.assertEqual((image["status"], image["reason"]), ("unreadable", "none.kesp: cannot open: No such file or directory"))
        run = self.run_image("list", self.changed(self.bytes[:78]))
        self.assertEqual((run.returncode, run.stderr), (1, "kelvra-image: changed.ruhx: not whole; verify tells more\n"))
        (row,) = self.json(1, "list", "changed.ruhx")["images"]
        self.assertEqual(row["loadId"], "")
        run = self.run_image("list", "nothing", "part.ruhx")
        self.assertEqual((run.returncode, run.stdout.split()[-1]), (2, "part.ruhx"))
        with open("/dev/full", "w") as full:
            run = subprocess.run([self.image, "fields"], stdout=full, stderr=subprocess.PIPE, text=True)
        self.assertEqual((run.returncode, run.stderr),
                         (2, "kelvra-image: standard output: cannot write: No space left on device\n"))


if __name__ == "__main__":
    ImageTest.kelvra, ImageTest.image = map(os.path.abspath, sys.argv[1:3])
    ImageTest.step = int((sys.argv[3:] or [1])[0])
    unittest.main(argv=sys.argv[:1])
