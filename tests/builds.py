#!/usr/bin/python3
"""The installed examples, built by the real CMake, GNU make and Ninja with what is installed beside them.
Usage: builds.py BUILD_FOLDER"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

for command in ['cmake', 'make', 'ninja']:
    if not shutil.which(command):
        print(f'{command} is missing')
        sys.exit(77)
build_folder = os.path.realpath(sys.argv[1])
failed = False

# Example, its build file, what configures and what builds it; and how its first image gets another source.
SYSTEMS = {
    'make': ('make', 'Makefile', [], ['make', '-j3', 'KELVRA_IMAGE=../the prefix/bin/kelvra-image'],
             ('app.ruhx:', 'boot.ruhx: private KELVRA_SOURCE = loader.lidhdr  # blanks\napp.ruhx:')),
    'ninja': ('ninja', 'build.ninja', [], ['ninja', '-j3'],
              ('boot.kesp | $kelvra_image', 'boot.kesp | $kelvra_image\n  flags = -r loader.lidhdr')),
    'cmake, ninja': ('cmake', 'CMakeLists.txt', ['cmake', '-G', 'Ninja'], ['ninja', '-j3', '-C', 'build'],
                     ('boot.kesp', 'boot.kesp SOURCE loader.lidhdr')),
    'cmake, make': ('cmake', 'CMakeLists.txt', ['cmake', '-G', 'Unix Makefiles'], ['make', '-j3', '-C', 'build'],
                    ('boot.kesp', 'boot.kesp SOURCE loader.lidhdr'))}
EXAMPLES = 'share/doc/kelvra/examples'
IMAGES = {'boot', 'loader', 'app'}
TOUCHED = {'boot.kesp': {'boot'}, 'boot.lidhdr': {'boot'}, 'loader.kesp': {'loader'}, 'loader.lidhdr': {'loader'},
           'app.kesp': {'app'}, 'app.lidhdr': {'app'}, 'product.vpdinfo': IMAGES}


def expect(claim, wanted, actual):
    global failed
    if wanted != actual:
        failed = True
        print(f'{claim}: expected {wanted!r}, actual {actual!r}')


def run(folder, *words):
    # "sh" leaves its process to the command, so that a tool can name the build that runs it.
    ended = subprocess.run(['sh', '-c', 'export BUILD=$$; exec "$@"', 'sh', *words], cwd=folder, text=True, check=False,
                           stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    return ended.returncode, ended.stdout


class Project:
    """A copy of an example, its images, and what a build makes of them."""

    def __init__(self, work, prefix, system):
        example, file, configure, self.command, self.other_source = SYSTEMS[system]
        self.system, self.prefix, self.folder = system, prefix, work / f'a {system}'
        shutil.copytree(prefix / EXAMPLES / example, self.folder)
        self.images = self.folder / ('build' if configure else '.')
        self.file, self.source, self.seconds = self.folder / file, 'boot.lidhdr', '1767225600'
        self.file.write_text(self.file.read_text().replace('= /usr\n', f'= {prefix}\n'))
        if configure:
            code, said = run(self.folder, *configure, '-B', 'build', f'-DCMAKE_PREFIX_PATH={prefix}')
            expect(f'{system}: configured ({said})', 0, code)

    def touch(self, path):
        # Later than every file of the project and every image, whatever a tick of the clock is.
        files = [*self.folder.rglob('*'), *self.images.rglob('*')]
        newest = max(file.stat().st_mtime_ns for file in files if file.is_file())
        path.touch()
        while path.stat().st_mtime_ns <= newest:
            os.utime(path)

    def edit(self, name, old, new):
        path = self.folder / name
        expect(f'{self.system}: {old!r} in {name}', True, old in path.read_text())
        path.write_text(path.read_text().replace(old, new))
        self.touch(path)

    def run(self):
        """The exit status, the output, and the names of the images that are other files than before."""
        def seen():
            return {(file.stem, file.stat().st_ino, file.stat().st_mtime_ns) for file in self.images.rglob('*.ruhx')}
        before = seen()
        code, said = run(self.folder, *self.command)
        return code, said, {name for name, _, _ in seen() ^ before}

    def builds(self, claim, wanted, text=''):
        code, said, made = self.run()
        expect(f'{self.system}: {claim} ({said})', (0, wanted, True), (code, made, text in said))
        for name in IMAGES:
            source = self.source if name == 'boot' else f'{name}.lidhdr'
            code, said = run(self.folder, self.prefix / 'bin/kelvra-image', 'verify', self.images / f'{name}.ruhx',
                             '--utc', '-l', f'{name}.kesp', '-r', source, '--timestamp', self.seconds)
            expect(f'{self.system}: {claim}: {name} ({said})', 0, code)

    def fails(self, claim, *texts):
        code, said, made = self.run()
        expect(f'{self.system}: {claim} ({said})', (True, set()), (code != 0, made))
        expect(f'{self.system}: {claim} ({said})', [], [text for text in texts if text not in said])


def check_example(project):
    tool = project.prefix / 'bin/kelvra-image'
    project.builds('clean', IMAGES)
    bytes_made = {name: (project.images / f'{name}.ruhx').read_bytes() for name in IMAGES}
    project.builds('nothing to do', set())
    for name, images in TOUCHED.items():
        project.touch(project.folder / name)
        project.builds(f'{name} touched', images)
    project.touch(tool)
    project.builds('tool touched', IMAGES)

    project.edit('boot.lidhdr', 'NM.product', 'NM.other')
    other = project.folder / 'other.vpdinfo'
    for state in ['not there yet', 'gone']:
        project.fails(f'VPDINFO source {state}', 'boot.ruhx: not made: ', 'other.vpdinfo: cannot open: No such file')
        other.write_text(':PRODUCTID.OTHER\n')
        project.touch(other)
        project.builds(f'VPDINFO source {state} and come', {'boot'})
        project.touch(project.folder / 'product.vpdinfo')
        project.builds('VPDINFO source of two', {'loader', 'app'})
        other.unlink()
    project.edit('boot.lidhdr', 'NM.other', 'NM.product')
    project.builds('VPDINFONM as it was', {'boot'})

    project.edit('loader.lidhdr', ':RUDEST.SERV', ':RUDEST.NOWHERE')
    project.fails('refused value', 'NOWHERE', 'loader.ruhx: not made')
    project.edit('loader.lidhdr', ':RUDEST.NOWHERE', ':RUDEST.SERV')
    project.builds('mended', {'loader'})
    kept = (project.folder / 'boot.lidhdr').read_bytes()
    (project.folder / 'boot.lidhdr').unlink()
    project.fails('RUVPD source gone', 'boot.ruhx', 'boot.lidhdr')
    (project.folder / 'boot.lidhdr').write_bytes(kept)
    project.touch(project.folder / 'boot.lidhdr')
    project.builds('RUVPD source come', {'boot'})
    project.edit(project.file, *project.other_source)
    project.source = 'loader.lidhdr'
    project.builds('another source', {'boot'})

    # A tool that ends the build in the middle, of the same time as the real one.
    project.edit(project.file, '1767225600', '1767225601')
    project.seconds = '1767225601'
    times = tool.stat()
    tool.rename(f'{tool}.real')
    tool.write_text('#!/bin/sh\nkill -KILL $BUILD\nexit 1\n')
    tool.chmod(0o755)
    os.utime(tool, ns=(times.st_atime_ns, times.st_mtime_ns))
    expect(f'{project.system}: killed', -9, project.run()[0])
    os.rename(f'{tool}.real', tool)
    project.builds('another time, after an interrupted build', {'app'})
    expect(f'{project.system}: the stamp', bytes.fromhex('6955b901'), (project.images / 'app.ruhx').read_bytes()[4:8])
    return bytes_made


def check_make(project):
    flags = 'app.ruhx: KELVRA_FLAGS = --lint\n'
    text = project.file.read_text()
    project.edit(project.file, text, text + flags)
    project.builds('an option more', {'app'})
    project.edit(project.file, flags, '')
    project.builds('an option less', {'app'})
    product = project.folder / 'product.vpdinfo'
    # A failure is one, whatever the makefile around the fragment makes of recipes.
    project.edit(project.file, text, text + '.ONESHELL:\n')
    project.builds('.ONESHELL', set())
    product.unlink()
    expect('VPDINFO source gone', 2, run(project.folder, *project.command, '-k')[0])
    product.write_text(':PRODUCTID.OLD\n')
    os.utime(product, (0, 0))
    project.builds('an older VPDINFO source come', IMAGES)
    (project.folder / 'loader.lidhdr').rename(project.folder / 'loader.in')
    project.edit(project.file, text, text + 'loader.lidhdr: loader.in; cp $< $@\n')
    run(project.folder, 'make', 'clean')
    project.builds('generated source', IMAGES)
    project.touch(project.folder / 'loader.in')
    project.builds('generated source anew', {'boot', 'loader'})
    # Inputs made by pattern rules, and an image in a folder that is not there yet, whose name begins with a dot.
    for kind, made_from in [('kesp', 'bin'), ('lidhdr', 'in')]:
        (project.folder / f'app.{kind}').rename(project.folder / f'app.{made_from}')
    with project.file.open('a') as file:
        file.write('../made/%.ruhx: private KELVRA_LID = $(@:../made/%.ruhx=%.kesp)\napp.kesp app.lidhdr:\n'
                   '%.kesp: %.bin; cp $< $@\n%.lidhdr: %.in; cp $< $@\n')
    project.images = project.folder / '../made'
    for changed, wanted in [('', {'app'}), ('', set()), ('app.in', {'app'}), ('product.vpdinfo', {'app'})]:
        if changed:
            project.touch(project.folder / changed)
        project.command.append('../made/app.ruhx')
        code, said, made = project.run()
        project.command.pop()
        expect(f'pattern rules, {changed} touched ({said})', (0, wanted), (code, made))
    run(project.folder, 'make', 'clean')
    for name in ['app.in', 'app.lidhdr']:
        (project.folder / name).unlink()
    said = run(project.folder, 'make', 'app.ruhx')[1]
    expect(f'no source at all ({said})', True, 'app.ruhx: not made: app.lidhdr: cannot open' in said)


GENERATED = '''
foreach(kind kesp lidhdr vpdinfo)
  add_custom_command(OUTPUT made.${kind} COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_CURRENT_SOURCE_DIR}/from.${kind}"
    made.${kind} DEPENDS from.${kind} VERBATIM)
endforeach()
kelvra_add_image(made LID made.kesp VPDINFO made.vpdinfo OUTPUT "sub folder/made.ruhx" LINT)
enable_language(C)
file(CONFIGURE OUTPUT program.c CONTENT "int main(void) { return 0; }")
add_executable(program program.c)
kelvra_add_image(firmware LID $<TARGET_FILE:program> SOURCE boot.lidhdr TIMESTAMP 5)
add_custom_command(TARGET made POST_BUILD COMMAND cmp "$<TARGET_PROPERTY:made,KELVRA_IMAGE>" "sub folder/made.ruhx")
'''
TOOLCHAIN = '''
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_SIZEOF_VOID_P 4)
set(CMAKE_FIND_ROOT_PATH "{root}")
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM {program})
'''
WRONG = {'boot': 'kelvra_add_image(boot): LID is missing', 'boot LID': 'kelvra_add_image(boot): no value: LID',
         'boot boot.kesp': 'kelvra_add_image(boot): unknown: boot.kesp',
         'boot LID boot.kesp TIMESTAMP now': 'kelvra_add_image(boot): TIMESTAMP is not a number of seconds: now',
         'boot LID $<TARGET_FILE:x>': 'kelvra_add_image(boot): SOURCE is missing'}


def check_cmake(project):
    for name in ['loader.kesp', 'loader.lidhdr', 'product.vpdinfo']:
        shutil.copy(project.folder / name, project.folder / f'from.{name.split(".")[1]}')
    # Something that lint tells of.
    project.edit('from.lidhdr', '(* Loads', '* Loads')
    text = project.file.read_text()
    project.edit(project.file, text, text + GENERATED)
    project.builds('generated inputs', {'made', 'firmware'})
    for kind in ['kesp', 'lidhdr', 'vpdinfo']:
        project.builds('generated inputs, nothing to do', set())
        project.touch(project.folder / f'from.{kind}')
        project.builds(f'generated {kind}', {'made'}, '[comment-like]')
    run(project.folder, *project.command, 'clean')
    expect(f'{project.system}: clean leaves', [], list(project.images.rglob('*.ruhx*')))
    project.file.write_text(text)
    generator = SYSTEMS[project.system][2]
    for root, program, found in [(project.prefix, 'NEVER', []),
                                 (project.folder, 'ONLY', [f'-Dkelvra_DIR={project.prefix}/share/cmake/kelvra'])]:
        (project.folder / 'arm.cmake').write_text(TOOLCHAIN.format(root=root, program=program))
        code, said = run(project.folder, *generator, '-B', 'arm', '--toolchain', 'arm.cmake', *found,
                         f'-DCMAKE_MAKE_PROGRAM={shutil.which(project.command[0])}')
        expect(f'{project.system}: for a 32-bit system, {program} ({said})', 0, code)
        expect(f'{project.system}: built for it', 0, run(project.folder, 'cmake', '--build', 'arm')[0])
        shutil.rmtree(project.folder / 'arm')
    for words, reason in WRONG.items():
        project.file.write_text(text.partition('kelvra_add')[0] + f'kelvra_add_image({words})\n')
        code, said = run(project.folder, *generator, '-B', 'wrong', f'-DCMAKE_PREFIX_PATH={project.prefix}')
        expect(f'{project.system}: {words} ({said})', (True, True), (code != 0, reason in said))


def check(work):
    prefix = work / 'the prefix'
    expect('installed', 0, run(work, 'cmake', '--install', build_folder, '--prefix', prefix)[0])
    # GNU make reads no name with a blank in "include".
    (work / 'prefix').symlink_to(prefix)
    os.environ.update(TZ='EST5', SOURCE_DATE_EPOCH='1')
    path = os.environ['PATH']
    for folder in filter(pathlib.Path.is_dir, (prefix / EXAMPLES).iterdir()):
        for name in TOUCHED:
            expect(f'{folder}: {name}', (prefix / EXAMPLES / 'cmake' / name).read_bytes(), (folder / name).read_bytes())
    made = []
    for system in SYSTEMS:
        os.environ['PATH'] = path if 'cmake' in system else f'{work}/prefix/bin:{path}'
        project = Project(work, prefix, system)
        made.append(check_example(project))
        for kind, check_more in [('cmake', check_cmake), ('make', check_make)]:
            if SYSTEMS[system][0] == kind:
                check_more(project)
    expect('the same images', made[:1] * len(made), made)


with tempfile.TemporaryDirectory() as name:
    check(pathlib.Path(name))
sys.exit(failed)
