#!/usr/bin/python3
"""Completion in the real bash and zsh, each at a terminal of its own. Usage: completions.py FOLDER_OF_THE_PROGRAMS"""
import json
import os
import pathlib
import pty
import re
import select
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time

FILES = pathlib.Path(__file__).resolve().parent.parent / 'share/completions'
QUOTED = shlex.quote(str(FILES))
HELPERS = '/usr/share/bash-completion/bash_completion'
BIN = os.path.realpath(sys.argv[1])

# Ctrl-X a inserts all that TAB would offer; Ctrl-X p tells the line and empties it.
BASH = r'''PS1=; bind '"\C-xa": insert-completions'
bind -x '"\C-xp": printf "%s\0" "$READLINE_LINE" >&9; READLINE_LINE='; printf '\0' >&9
'''
ZSH = r'''PS1=; fpath=(FILES $fpath); autoload -Uz compinit; compinit -u -D
zle -C all complete-word _generic; bindkey '^xa' all; zstyle ':completion:all:*' completer _all_matches _complete
zstyle ':completion:all:*' insert true; tell() { print -rnu9 -- "$BUFFER"$'\0'; BUFFER=; }; zle -N tell
bindkey '^xp' tell; print -nu9 '\0'
'''.replace('FILES', QUOTED)
SHELLS = {
    'bash': (['bash', '--norc', '--noprofile'], f'. {QUOTED}/kelvra.bash; . {QUOTED}/kelvra-image.bash; {BASH}'),
    'bash with bash-completion': (['bash', '--norc', '--noprofile'], f'. {HELPERS}; {BASH}'),
    'zsh': (['zsh', '-f'], ZSH),
}

NAMES = ['part.kesp', 'b c.kesp', 'boot.bin', 'part.lidhdr', 'u.pfginfo', 'u.sfginfo', 'qel.vpdinfo', 'part.ruhx', 'o.d',
         'dir a/in a.kesp', 'dir a/in a.ruhx']
LIDS = ['b c.kesp', 'completions', 'dir a', 'part.kesp']
SOURCES = ['completions', 'dir a', 'part.lidhdr', 'qel.vpdinfo', 'u.pfginfo', 'u.sfginfo']
IMAGES = ['completions', 'dir a', 'part.ruhx']
# Words before, the word so far, what is offered for it; it stays where that is nothing.
ROWS = [
    ('kelvra', '', ['-l', '-o', '-r']),
    ('kelvra -l', '', LIDS),
    ('kelvra -l', 'bo', ['boot.bin']),
    ('kelvra -l', 'b\\ ', ['b c.kesp']),
    ('kelvra -l', 'dir\\ a/', ['dir a/in a.kesp']),
    ('kelvra -l', '"dir a/i', ['dir a/in a.kesp']),
    ('kelvra -l part.kesp -r', '', SOURCES),
    ('kelvra -o', '', IMAGES),
    ('kelvra -o', 'bo', []),
    ('kelvra-image', 'li', ['lint', 'list']),
    ('kelvra-image build -l', '', LIDS),
    ('kelvra-image build --lid', 'bo', ['boot.bin']),
    ('kelvra-image build', '--lid=', LIDS),
    ('kelvra-image build', '--lid=bo', ['boot.bin']),
    ('kelvra-image deps -r', '', SOURCES),
    ('kelvra-image verify part.ruhx --source', 'u', ['u.pfginfo', 'u.sfginfo']),
    ('kelvra-image build -o', '', IMAGES),
    ('kelvra-image lint --output', 'bo', []),
    ('kelvra-image extract part.ruhx -o', 'bo', []),
    ('kelvra-image deps --vpdinfo', 'bo', []),
    ('kelvra-image extract --output', '', LIDS),
    ('kelvra-image extract -o new.kesp', 'dir\\ a/', ['dir a/in a.ruhx']),
    ('kelvra-image build --vpdinfo', '', ['completions', 'dir a', 'qel.vpdinfo']),
    ('kelvra-image build --depfile', '', ['completions', 'dir a', 'o.d']),
    ('kelvra-image build --timestamp', '', []),
    ('kelvra-image lint --disable utf-16', 'no-e', ['no-effect']),
    ('kelvra-image lint --disable utf-16', '--u', ['--utc']),
    ('kelvra-image lint -r part.lidhdr', '--dis', ['--disable']),
    *[(f'kelvra-image {command}', '', IMAGES) for command in ('show', 'list', 'diff', 'verify', 'extract')],
    ('kelvra-image diff part.ruhx', 'bo', ['boot.bin']),
]


def said(*words):
    return subprocess.run([f'{BIN}/kelvra-image', *words], capture_output=True, text=True, check=True).stdout


commands = re.findall(r'^  (\w+)  ', said('--help').split('Subcommands:')[1], re.M)
ROWS += [('kelvra-image', '', commands),
         ('kelvra-image lint --disable', '', [rule['rule'] for rule in json.loads(said('fields', '--json'))['rules']])]
for command in [[], *[[command] for command in commands]]:
    options = re.findall(r'^  (-\S+)', said(*command, '--help'), re.M)
    ROWS.append((' '.join(['kelvra-image', *command]), '-', ','.join(options).split(',')))


def start(words, folder):
    result, told = os.pipe()
    process, terminal = pty.fork()
    if process == 0:
        os.dup2(told, 9)
        os.set_inheritable(9, True)  # also when it was 9 before
        os.chdir(folder)
        os.execvpe(words[0], words, {'PATH': f'{BIN}:{os.environ["PATH"]}', 'HOME': folder, 'TERM': 'dumb',
                                     'BASH_COMPLETION_USER_DIR': folder})
    os.close(told)
    return process, terminal, result


def type_keys(keys, terminal, result):
    """What the shell tells once it has read the keys; and its messages."""
    os.write(terminal, keys.encode())
    line, log, end = b'', b'', time.monotonic() + 30
    while not line.endswith(b'\0'):
        ready = select.select([terminal, result], [], [], max(0, end - time.monotonic()))[0]
        if not ready:
            sys.exit(f'no answer to {keys!r}: {log.decode()}')
        log += os.read(terminal, 4096) if terminal in ready else b''
        if result in ready:
            line += os.read(result, 4096) or sys.exit(f'the shell ended at {keys!r}: {log.decode()}')
    return line[:-1].decode(), re.findall(r'(?:bash|zsh|_kelvra\w*): .*', log.decode())


failed, tested = False, False
for name, (words, setup) in SHELLS.items():
    if not shutil.which(words[0]) or HELPERS in setup and not os.path.exists(HELPERS):
        print(f'{name} is not there')
        continue
    tested = True
    with tempfile.TemporaryDirectory() as folder:
        os.symlink(FILES, f'{folder}/completions')
        for file in NAMES:
            os.makedirs(os.path.dirname(f'{folder}/{file}'), exist_ok=True)
            open(f'{folder}/{file}', 'w', encoding='ascii').close()
        process, *ends = start(words, folder)
        type_keys(setup, *ends)
        for before, current, offered in ROWS:
            line, messages = type_keys(f'{before} {current}' + ('\t' if len(offered) == 1 else '\x18a') + '\x18p', *ends)
            told = shlex.split(line)[len(before.split()):]
            actual = sorted(re.sub(r'^--\w+=\b', '', word).rstrip('/=') for word in told)
            wanted = sorted(offered or current.split())
            if wanted != actual or messages:
                failed = True
                print(f'{name}: {before} {current}: expected {wanted}, actual {actual}', *messages)
        os.kill(process, signal.SIGKILL)
        os.waitpid(process, 0)
        for end in ends:
            os.close(end)
sys.exit(failed if tested else 77)
