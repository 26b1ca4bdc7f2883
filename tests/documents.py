#!/usr/bin/python3
"""The pages, held against the tools: documents.py BUILD_FOLDER.

Runs each command that stands after "$ " in an indented block, in a copy of the examples, and compares what it prints;
"..." stands for any lines. Compares the tables with what `kelvra-image fields --json` tells, and looks for dead links.
"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGES = sorted([*ROOT.glob("*.md"), *(ROOT / "docs").glob("*.md")])


def sessions(page):
    """The commands of a page, each with the lines that it is said to print."""
    found = []
    for block in re.findall(r"(?:^    .*\n)+", page.read_text(), re.M):
        for line in re.findall(r"^    (.*)\n", block, re.M):
            if line.startswith("$ "):
                found.append((line[2:], []))
            elif block.startswith("    $ "):
                found[-1][1].append(line)
    return found


class Documents(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.prefix = pathlib.Path(cls.folder.name, "usr")
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix], check=True, stdout=subprocess.DEVNULL)
        # What a page shows is the same in any time zone.
        cls.environment = dict(os.environ, PATH=f"{cls.prefix}/bin:{os.environ['PATH']}", LC_ALL="C.UTF-8", TZ="EST5")

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_commands_print_what_the_pages_say(self):
        for page in PAGES:
            commands = sessions(page)
            with tempfile.TemporaryDirectory() as work:
                shutil.copytree(ROOT / "examples", work, dirs_exist_ok=True)
                script = "".join(f"echo '<{number}>'\n{command}\n" for number, (command, _) in enumerate(commands))
                run = subprocess.run(["bash", "-c", re.sub(r"/usr\b(?!/bin)", str(self.prefix), script)], cwd=work,
                                     env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                     check=False)
            printed = re.split(r"^<\d+>\n", run.stdout, flags=re.M)[1:]
            self.assertEqual(len(printed), len(commands), run.stdout)
            for (command, lines), actual in zip(commands, printed):
                wanted = "".join(r"(?:.*\n)*" if line == "..." else re.escape(line) + r"\n" for line in lines)
                with self.subTest(page=page.name, command=command):
                    self.assertTrue(re.fullmatch(wanted, actual), actual)

    def test_links_lead_somewhere(self):
        for page in PAGES:
            for link in re.findall(r"\]\(([^)#]+)\)", page.read_text()):
                with self.subTest(page=page.name, link=link):
                    self.assertTrue((page.parent / link).exists())

    def test_fragments_are_those_of_the_examples(self):
        page = (ROOT / "docs/building.md").read_text()
        fragments = re.findall(r"^From `(examples/[^`]+)`:\n\n((?:(?:    .*)?\n)+)", page, re.M)
        self.assertEqual(len(fragments), 4)
        for name, fragment in fragments:
            with self.subTest(name):
                self.assertIn(re.sub(r"^    ", "", fragment, flags=re.M).strip(), (ROOT / name).read_text())

    def test_the_newest_changes_are_those_of_the_version(self):
        run = subprocess.run([self.prefix / "bin/kelvra-image", "--version"], stdout=subprocess.PIPE, check=True)
        headings = re.findall(r"^## ([^,]*),", (ROOT / "CHANGELOG.md").read_text(), re.M)
        self.assertEqual(run.stdout.decode(), f"kelvra-image {headings[0]}\n")

    def test_tables_are_those_of_the_tool(self):
        run = subprocess.run([self.prefix / "bin/kelvra-image", "fields", "--json"], stdout=subprocess.PIPE, check=True)
        tables = json.loads(run.stdout)
        page = (ROOT / "docs/kelvra-image.md").read_text()
        checks = [f"| `{row['check']}` | {row['summary']} |" for row in tables["checks"]]
        rules = [f"| `{row['rule']}` | {row['severity']} | {row['summary']} |" for row in tables["rules"]]
        for title, rows in (("verify", checks), ("lint", rules)):
            section = page.partition(f"\n## {title}\n")[2].partition("\n## ")[0]
            self.assertEqual(re.findall(r"^\| `.*$", section, re.M), rows)
        rows = {}
        for line in re.findall(r"^\| [A-Z]+\b.*$", (ROOT / "docs/sources.md").read_text(), re.M):
            names, _, values, default, _ = [cell.strip() for cell in line[1:].split("|")]
            for name in names.split(", "):
                rows[name.removesuffix(" (V)")] = (name.endswith(" (V)"), values, default)
        self.assertEqual(rows.keys(), {row["keyword"] for row in tables["keywords"]})
        for row in tables["keywords"]:
            with self.subTest(row["keyword"]):
                vpdinfo, values, default = rows[row["keyword"]]
                self.assertEqual(vpdinfo, row["vpdinfo"])
                self.assertCountEqual(re.findall(r"`([^`]+)`", values), [value["name"] for value in row.get("values", [])])
                self.assertEqual(re.findall(r"\(else (\d+)\)", values), [str(row["code"])] if "code" in row else [])
                self.assertEqual(re.findall(r"cut to (\d+)", values), [str(row["width"])] if "width" in row else [])
                self.assertTrue(default.startswith(f"`{row['whenNotGiven']}`" if "whenNotGiven" in row else ""), default)
        codes = re.findall(r"^\| ([\d, ]+) \|", (ROOT / "docs/kelvra.md").read_text(), re.M)
        written = {int(code) for row in codes for code in row.split(", ")}
        self.assertLessEqual({row["code"] for row in tables["keywords"] if "code" in row}, written)
        self.assertLessEqual(written, {row["code"] for row in tables["codes"]})


unittest.main()
