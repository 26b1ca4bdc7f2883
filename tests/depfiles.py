#!/usr/bin/python3
"""Depfiles of kelvra-image, read back by the real GNU make and Ninja. Usage: depfiles.py PATH_TO_KELVRA_IMAGE"""
import os
import re
import subprocess
import sys
import tempfile

image = os.path.realpath(sys.argv[1])
failed = False

# Characters and words of names that both readers get back as they are; "%" alone is not read by Ninja in an output,
# unless the rule says "deps = gcc".
held = ['plain', 'a b', ' a', 'a  b', 'a$b', '$', '$$', '$(a)b', 'a#b', '#', 'a:b', ':a', 'a::b', 'a%b', '%', 'a%b%c',
        'a\\b', 'a\\ b', 'a\\\\ b', 'a(b', 'a~b', 'a@b', 'a,b', '{a}', '-a', '.a', 'a]', '!a', '+', 'include', '.PHONY',
        'gr\u00f6\u00dfe', 'all: $b#c\\d %e']
refused = ['a=b', 'a[b', 'a*b', 'a?b', 'a|b', 'a;b', 'a\\', 'a\nb', 'a\tb', "a'b", 'a"b', 'a&b', 'a<b', 'a>b', 'a^b', 'a`b',
           'a\x7fb', '~a', 'a:', 'a ', 'a)', 'a\\#b', 'a\\:b', 'a\\$b', 'a\\%b', 'define', 'undefine']


def run(*words):
    ended = subprocess.run(words, stdin=subprocess.DEVNULL, capture_output=True, check=False)
    return ended.returncode, os.fsdecode(ended.stdout), os.fsdecode(ended.stderr)


def expect(claim, wanted, actual):
    global failed
    if wanted != actual:
        failed = True
        print(f'{claim}: expected {wanted!r}, actual {actual!r}')


def touch(*names):
    for name in names:
        with open(name, 'w', encoding='ascii'):
            pass


def read_by_make(output, inputs):
    touch(output, *inputs)
    _, said, _ = run('make', '-rRd', '-f', 'depfile', '--', output)
    seen = set(re.findall(r"Considering target file '(.*)'\.", said)) - {'depfile'}
    expect('make reads', {output, *inputs}, seen)
    for name in inputs:
        os.remove(name)
        expect(f'make without {name!r}', 0, run('make', '-rR', '-f', 'depfile', '--', output)[0])
        touch(name)


def read_by_ninja(output, inputs, mode):
    escaped = re.sub(r'[$ :]', r'$\g<0>', output)
    with open('build.ninja', 'w', encoding='utf-8') as rules:
        rules.write(f'rule r\n command = sh ./make.sh\n depfile = read\n {mode}\nbuild {escaped}: r\n')
    with open('make.sh', 'w', encoding='utf-8') as script:
        script.write("cp depfile read && : >'" + output.replace("'", "'\\''") + "'\n")
    touch(output, *inputs)
    run('ninja')
    expect(f'ninja, {mode!r}, again', (0, 'ninja: no work to do.\n', ''), run('ninja'))
    if mode:
        expect('ninja reads', inputs, re.findall('^    (.*)$', run('ninja', '-t', 'deps')[1], re.MULTILINE))
    for name in inputs:
        os.utime(name, (4e9, 4e9))
        expect(f'ninja, {mode!r}, newer {name!r}', False, 'no work' in run('ninja', '-n')[1])
        os.utime(name, (1e9, 1e9))


def check(output, inputs):
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        code, depfile, said = run(image, 'deps', '-l', inputs[0], '-r', inputs[1], '--vpdinfo', inputs[2], '-o', output)
        expect(f'deps of {output!r}, {inputs!r}', (0, ''), (code, said))
        with open('depfile', 'w', encoding='utf-8') as file:
            file.write(depfile)
        read_by_make(output, inputs)
        for mode in ['deps = gcc'] + [''] * ('%' not in output):
            for name in os.listdir('.'):
                if name != 'depfile':
                    os.remove(name)
            read_by_ninja(output, inputs, mode)
        os.chdir('/')


for word in held:
    check(word + '.ruhx', ['l.kesp', 's.lidhdr', 'v'])
    check('o.ruhx', [word + '.kesp', word + '.lidhdr', word])
with tempfile.TemporaryDirectory() as here:
    os.chdir(here)
    os.mkdir('d')
    touch('l.lidhdr', 'd/n.lidhdr')
    for word in refused:
        for place in ['--vpdinfo', '-o']:
            got, printed, reason = run(image, 'deps', '-l', 'l', place, word)
            said = reason.endswith(': a depfile for make and Ninja cannot hold this name\n')
            expect(f'{place} {word!r}', (2, '', True), (got, printed, said))
        expect(f'{word!r} as JSON', 0, run(image, 'deps', '--json', '-l', 'l', '-o', word)[0])
    # Names as the run would find them, from what the RUVPD source says or from nothing.
    with open('u.lidhdr', 'w', encoding='ascii') as source:
        source.write(':VPDINFONM.other\n')
    for words, wanted in [(['-l', 'u.kesp'], 'u.ruhx: u.kesp u.lidhdr other.vpdinfo'),
                          (['-l', 'd/n', '-o', 'x'], 'x: d/n.kesp d/n.lidhdr d/qel.vpdinfo'),
                          (['-l', 'n', '-r', 'n.sfginfo'], 'n.ruhx: n.kesp n.sfginfo'),
                          (['-l', 'u', '--vpdinfo', 'v'], 'u.ruhx: u.kesp u.lidhdr v')]:
        rules = [wanted] + [name + ':' for name in wanted.split(' ')[1:]]
        expect(f'deps {words}', (0, '\n\n'.join(rules) + '\n', ''), run(image, 'deps', *words))
    expect('deps without its source', (2, '', 'kelvra-image: n.lidhdr: cannot open: No such file or directory\n'),
           run(image, 'deps', '-l', 'n'))
    os.chdir('/')
sys.exit(failed)
