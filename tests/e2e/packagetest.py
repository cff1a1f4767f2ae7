"""What is installed, and what the desktop is told: python3 packagetest.py BUILD-FOLDER TEST."""
import glob
import os
import re
import subprocess
import sys
import tempfile

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

INSTALLED = """
bin/meridune
bin/trevia
share/applications/meridune.desktop
share/doc/meridune/changelog.gz
share/doc/meridune/copyright
share/icons/hicolor/128x128/apps/meridune.png
share/icons/hicolor/48x48/apps/meridune.png
share/icons/hicolor/scalable/apps/meridune.svg
share/icons/hicolor/scalable/mimetypes/application-x-segy.svg
share/man/man1/meridune.1.gz
share/man/man1/trevia.1.gz
share/metainfo/org.brenlake.Meridune.metainfo.xml
share/mime/packages/meridune-segy.xml
""".split()


def run(*command, **options):
    result = subprocess.run(command, capture_output=True, text=True, **options)
    assert result.returncode == 0, f'{command} ended with {result.returncode}:\n{result.stdout}{result.stderr}'
    return result.stdout + result.stderr


def install_puts_each_file_in_its_place(build):
    with tempfile.TemporaryDirectory() as folder:
        run('cmake', '--install', build, '--prefix', folder)
        found = [os.path.relpath(os.path.join(place, name), folder)
                 for place, _, names in os.walk(folder) for name in names]
        assert sorted(found) == sorted(INSTALLED), found
        for program in 'meridune', 'trevia':
            assert run(f'{folder}/bin/{program}', '--version').startswith(f'{program} ')


def the_desktop_files_are_valid(build):
    desktop = os.path.join(SOURCE, 'resources', 'desktop')
    assert run('desktop-file-validate', f'{desktop}/meridune.desktop') == ''
    run('appstreamcli', 'validate', '--no-net', '--pedantic', f'{desktop}/meridune.metainfo.xml')
    with tempfile.TemporaryDirectory() as folder:
        os.makedirs(f'{folder}/mime/packages')
        os.symlink(f'{desktop}/meridune-segy.xml', f'{folder}/mime/packages/meridune-segy.xml')
        said = run('update-mime-database', f'{folder}/mime', env={**os.environ, 'XDG_DATA_DIRS': folder})
        assert said == '', said
        globs = open(f'{folder}/mime/globs', encoding='utf-8').read()
        assert 'application/x-segy:*.sgy' in globs and 'application/x-segy:*.segy' in globs, globs
    offered = re.search(r'^MimeType=(.*);$', open(f'{desktop}/meridune.desktop', encoding='utf-8').read(), re.M)
    assert offered and offered[1] == 'application/x-segy'


def the_man_pages_are_clean_and_name_every_option(build):
    commands = re.findall(r'^  ([a-z]+)  ', run(f'{build}/trevia/trevia', '--help'), re.M)
    assert 'demo' in commands, commands
    helps = {'meridune': [['frame/meridune', '--help']],
             'trevia': [['trevia/trevia', '--help']] + [['trevia/trevia', name, '--help'] for name in commands]}
    for program, commands in helps.items():
        page = f'{SOURCE}/resources/man/{program}.1'
        said = run('groff', '-t', '-man', '-ww', '-z', '-Tutf8', page)
        assert said == '', said
        text = run('groff', '-t', '-man', '-Tascii', '-P-cbou', page)
        for command in commands:
            told = run(f'{build}/{command[0]}', *command[1:])
            words = set(re.findall(r'--[a-z][a-z-]+', told)) | set(re.findall(r'^  ([a-z]+)  ', told, re.M))
            assert words, told
            for word in words:
                assert word in text, f'{page} does not tell {word}'


def the_debian_package_holds_the_same_files(build):
    with tempfile.TemporaryDirectory() as folder:
        run('cpack', '-G', 'DEB', '-B', folder, '--config', f'{build}/CPackConfig.cmake')
        package, = glob.glob(f'{folder}/*.deb')
        listed = [line.split(maxsplit=5) for line in run('dpkg-deb', '-c', package).splitlines()]
        files = [row[5][len('./usr/'):] for row in listed if not row[0].startswith('d')]
        assert sorted(files) == sorted(INSTALLED), files
        for row in listed:
            executable = row[0].startswith('d') or row[5].startswith('./usr/bin/')
            assert row[0] == ('d' if row[0][0] == 'd' else '-') + ('rwxr-xr-x' if executable else 'rw-r--r--'), row
            assert row[1] == 'root/root', row
        needs = run('dpkg-deb', '-f', package, 'Depends')
        for library in 'libqt5widgets5', 'qt5-image-formats-plugins', 'libqwt-qt5-6', 'libfftw3-single3', 'libc6':
            assert library in needs, needs


if __name__ == '__main__':
    globals()[sys.argv[2]](sys.argv[1])
    print(sys.argv[2], 'passed')
