#!/usr/bin/python3
"""The man pages, held against what the programs say of themselves. Usage: pages.py KELVRA KELVRA-IMAGE"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
KELVRA, IMAGE = (os.path.realpath(path) for path in sys.argv[1:3])
PAGES = {name: (ROOT / 'share/man' / name).read_text() for name in ('kelvra.1', 'kelvra-image.1', 'kelvra.5')}
failed = False


def expect(claim, program, page):
    global failed
    if program != page:
        failed = True
        print(f'{claim}:', *[f'not in the page: {row}' for row in program if row not in page],
              *[f'only in the page: {row}' for row in page if row not in program], 'or in another order', sep='\n  ')


def run(*words):
    return subprocess.run(words, capture_output=True, text=True, check=False)


def items(page, title):
    """(subsection, head, body as one line) of each list item of the section."""
    section = PAGES[page].split(f'\n.Sh {title}')[1].split('\n.Sh ')[0]
    for part in re.split(r'^\.Ss ', section + '\n', flags=re.M):
        for head, body in re.findall(r'^\.It (.*)\n((?:(?!\.It |\.El).*\n)*)', part, re.M):
            yield part.split('\n')[0], head.removeprefix('Cm '), ' '.join(body.split())


def flags(text):
    return tuple(('--' if double else '-') + word for double, word in re.findall(r'\bFl (Fl )?(\w+)', text))


def named(values):
    return [f'.Cm {value["name"]} Ns \\~({value["code"]})' for value in values]


if shutil.which('mandoc'):
    lint = run('mandoc', '-T', 'lint', '-W', 'warning', *[ROOT / 'share/man' / name for name in PAGES])
    expect('mandoc', [], lint.stdout.splitlines() + lint.stderr.splitlines())
else:
    print('mandoc is not there: the pages are not linted')

told = json.loads(run(IMAGE, 'fields', '--json').stdout)
codes = {code: body for _, head, body in items('kelvra.1', 'EXIT STATUS') for code in head.split(' , ')}
expect('codes', sorted(str(row['code']) for row in told['codes']), sorted(codes))
expect('checks', [('', row['check'], row['summary']) for row in told['checks']], list(items('kelvra-image.1', 'CHECKS')))
expect('rules', [(row['severity'].title() + 's', row['rule'], row['summary']) for row in told['rules']],
       list(items('kelvra-image.1', 'RULES')))

texts = {}
for row in told['keywords']:
    values = row.get('values', [])
    text = row['effect'][0].upper() + row['effect'][1:] + '.'
    if values:
        separator = ' or ' if len(values) == 2 else ' , '
        text += f' {separator.join(named(values))} ; else {row.get("code", "ignored")}.'
    for value in values:
        if value['name'] == row.get('whenNotGiven') or 'whenNotGiven' not in row and value['code'] == 0:
            text += f' Default: .Cm {value["name"]} .'
    if 'width' in row:
        text += f' Text, cut to {row["width"]} characters.'
    if 'code' in row and row['keyword'] not in codes[str(row['code'])]:
        expect('code', [row['keyword']], [codes[str(row['code'])]])
    texts[row['keyword']] = text
expect('keywords', sorted((row['vpdinfo'], row['keyword'], texts[row['keyword']]) for row in told['keywords']),
       sorted((title == 'Keywords of both sources', keyword, body[:len(texts.get(keyword, body))])
              for title, keyword, body in items('kelvra.5', 'KEYWORDS')))

fields, others = [], []
for record in told['records']:
    for row in record['fields']:
        first, last = row.get('bit', 0), row.get('bit', 0) + row.get('width', 0) - 1
        bits = '' if 'bit' not in row else f' {first}' if first == last else f' {first}-{last}'
        fields.append((record['name'], row['offset'], row['length'], row['name'], row['kind'] + bits, row.get('keyword')))
        others += [] if 'keyword' in row else named(row.get('values', []))
layout, page, right = [], [], {}
for record, head, _ in items('kelvra.5', 'IMAGE'):
    cells = re.split(' Ta ?', head)
    if len(cells) == 3:
        layout.append(cells)
    if len(cells) == 5 and cells[2] != 'Em field':
        place = [int(cell.replace('n', '0').replace('m', '0')) for cell in cells[:2]]
        page.append((record, *place, *cells[2:4], cells[4] if cells[4] in texts else None))
        right[record, cells[2]] = cells[4]
expect('fields', fields, page)
expect('values without keyword', sorted({value for value in others if not re.search('Cm [YN] ', value)}),
       sorted(set(re.findall(r'\.Cm \S+ Ns \S+', PAGES['kelvra.5'].split('.Sh IMAGE')[1]))))

# The layout and the numbers of the page, in a real image.
with tempfile.TemporaryDirectory() as folder:
    shutil.copytree(ROOT / 'examples', folder, dirs_exist_ok=True)
    os.rename(f'{folder}/part.lidhdr', f'{folder}/long-base-name.lidhdr')
    run(IMAGE, 'build', '-l', f'{folder}/part.kesp', '-r', f'{folder}/long-base-name.lidhdr')
    shown = json.loads(run(IMAGE, 'show', '--json', f'{folder}/part.ruhx').stdout)['images'][0]['records']
    lengths = {'H': 513 + len('long-base-name'), 'S': os.path.getsize(f'{folder}/part.kesp')}
expect('layout', [(record['name'], record['offset'], record['length']) for record in shown],
       [(name, eval(offset, lengths), eval(length, lengths)) for name, offset, length in layout[1:]])
for record in shown:
    for name, field in record['fields'].items():
        if re.fullmatch(r'[0-9A-FHSx +-]+', right.get((record['name'], name), '')):
            expect(f'{record["name"]}.{name}', [int(field['value'])], [eval(right[record['name'], name], lengths)])

expect('options of kelvra', sorted(re.findall(r' (-\w) ', run(KELVRA).stderr)), sorted(set(flags(PAGES['kelvra.1']))))
described = list(items('kelvra-image.1', 'DESCRIPTION'))
commands = re.findall(r'^  (\w+)  ', run(IMAGE, '--help').stdout.split('Subcommands:')[1], re.M)
expect('commands', commands, [head for title, head, _ in described if title != 'Options'])
options = [(command, tuple(words.split(',')), bool(argument), 'REQUIRED' in rest) for command in commands for
           words, argument, rest in re.findall(r'^  (-\S+)( [A-Z]+)?(.*)', run(IMAGE, command, '--help').stdout, re.M)]
expect('options', sorted({option[1:3] for option in options}),
       sorted((flags(head), ' Ar ' in head) for title, head, _ in described if title == 'Options'))
known = {word for option in options for word in option[1]}
expect('options in texts', [], sorted(set(flags(PAGES['kelvra-image.1'])) - known))
synopsis = PAGES['kelvra-image.1'].split('.Sh SYNOPSIS')[1].split('.Sh ')[0]
expect('options of commands', sorted((command, words[:1], *rest) for command, words, *rest in options
                                     if words[-1] not in ('--help', '--version')),
       sorted((command, flags(words), ' Ar ' in words, not optional)
              for command, lines in re.findall(r'^\.Cm (\w+)\n((?:(?!\.Nm).*\n)*)', synopsis, re.M)
              for optional, words in re.findall(r'^\.(O[op] )?(Fl .*)', lines, re.M)))
sys.exit(failed)
