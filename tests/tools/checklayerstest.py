#!/usr/bin/env python3
"""tools/check_layers before a small house of its own, sound at first, then with one breach planted at a time.

usage: checklayerstest.py PROJECT
"""
import os
import subprocess
import sys
import tempfile
import unittest

PROJECT = os.path.abspath(sys.argv.pop(1))
QT = '/usr/include/x86_64-linux-gnu/qt5'

SOUND = {
    'host/kernel.h': '#include <vector>\n',
    'host/kernel.cpp': '#include "host/kernel.h"\n',
    'tracedata/trace.h': '#include <QString>\n',
    'tracedata/trace.cpp': '#include "tracedata/trace.h"\n#include "host/kernel.h"\n',
    'sources/reader.h': '',
    'sources/reader.cpp': '#include "sources/reader.h"\n#include "tracedata/trace.h"\n',
    'display/plot.h': '',
    'display/plot.cpp': '#include "display/plot.h"\n#include "sources/reader.h"\n',
    'frame/mainwindow.h': '',
    'frame/mainwindow.cpp': '#include "frame/mainwindow.h"\n#include "display/plot.h"\n',
    'trevia/main.cpp': '#include "sources/reader.h"\nint main() {}\n',
}


class CheckLayers(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.root = self._folder.name

    def tearDown(self):
        self._folder.cleanup()

    def write(self, files):
        for name, text in files.items():
            path = os.path.join(self.root, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, 'w', encoding='utf-8') as out:
                out.write(text)

    def build(self, libraries=''):
        """Has the compiler read all sources, by ninja as in the project's own build, and links trevia."""
        build = os.path.join(self.root, 'build', 'release')
        os.makedirs(build, exist_ok=True)
        modules = ' '.join(f'-isystem {QT}/{m}' for m in ('QtCore', 'QtGui', 'QtWidgets'))
        lines = ['rule cc', '  deps = gcc', '  depfile = $out.d',
                 f'  command = g++ -std=c++20 -fPIC -I../.. -isystem {QT} {modules} -isystem /usr/include/qwt '
                 '-MD -MF $out.d $mode $in -o $out',
                 'rule link', f'  command = g++ -Wl,--no-as-needed $in {libraries} -o $out']
        for folder, _, names in os.walk(self.root):
            for name in sorted(names):
                if name.endswith('.cpp'):
                    source = os.path.relpath(os.path.join(folder, name), self.root)
                    lines += [f'build {source}.o: cc ../../{source}', f'  mode = {"-c" if source == "trevia/main.cpp" else "-E"}']
        lines.append('build trevia/trevia: link trevia/main.cpp.o')
        self.write({'build/release/build.ninja': '\n'.join(lines) + '\n'})
        subprocess.run(['ninja', '-C', build], check=True, capture_output=True)

    def check(self):
        done = subprocess.run([os.path.join(PROJECT, 'tools/check_layers'), self.root], capture_output=True, text=True,
                              check=False)
        self.assertEqual(done.stderr, '')
        return done.returncode, done.stdout

    def assert_breach(self, planted, message, libraries=''):
        self.write({**SOUND, **planted})
        self.build(libraries)
        status, text = self.check()
        self.assertEqual(status, 1, text)
        self.assertIn(message, text)

    def test_a_sound_house_passes(self):
        self.write(SOUND)
        self.build()
        status, text = self.check()
        self.assertEqual((status, text), (0, 'check_layers: 5 headers, floors in order\n'))

    def test_widgets_in_a_reader_are_found_however_they_are_written(self):
        for line in ('#include <QLineEdit>', '#include <QComboBox>', '#include <QPixmap>',
                     '#include <QtWidgets/QDialog>', '#include "qlineedit.h"', '#  include  <QLabel>',
                     '# define W <QSlider>\n#include W', '#include "qwt_plot.h"', '#include <qwt_scale_map.h>'):
            with self.subTest(line):
                self.assert_breach({'sources/reader.cpp': '#include "sources/reader.h"\n' + line + '\n'},
                                   'sources/reader.cpp: sources/ may not include')

    def test_a_widget_in_a_header_that_nobody_includes_is_found(self):
        for line in ('#include <QLineEdit>', '#include "qwt_plot.h"', '#  include <QtWidgets/QDialog>'):
            with self.subTest(line):
                self.assert_breach({'sources/unused.h': '\n' + line + '\n'}, 'sources/unused.h:2: sources/ may not')

    def test_a_climb_is_found_however_the_path_is_written(self):
        for line in ('#include "display/plot.h"', '#include "../display/plot.h"', '#  include "display/plot.h"',
                     '#include <display/plot.h>', '#include "host/../display/plot.h"'):
            with self.subTest(line):
                self.assert_breach({'sources/reader.cpp': line + '\n'},
                                   'sources/reader.cpp: sources/ may not include display/plot.h')
                self.assert_breach({'sources/reader.h': line + '\n', 'sources/reader.cpp': ''},
                                   'sources/reader.h:1: sources/ may not include display/plot.h')

    def test_a_climb_behind_a_header_of_another_folder_is_found(self):
        self.assert_breach({'tracedata/trace.h': '#include "display/plot.h"\n'},
                           'sources/reader.cpp: sources/ may not include display/plot.h')

    def test_the_lowest_floor_knows_no_qt(self):
        self.assert_breach({'host/kernel.cpp': '#include <QString>\n'}, 'host/kernel.cpp: host/ may not include')

    def test_the_main_window_is_known_to_its_folder_only(self):
        self.assert_breach({'display/plot.cpp': '#include "../frame/mainwindow.h"\n'},
                           'display/plot.cpp: display/ may not include frame/mainwindow.h')

    def test_a_cycle_between_headers_is_found(self):
        self.assert_breach({'host/kernel.h': '#ifndef K\n#define K\n#include "host/other.h"\n#endif\n',
                            'host/other.h': '#ifndef O\n#define O\n#  include "kernel.h"\n#endif\n'},
                           'cycle: host/kernel.h -> host/other.h -> host/kernel.h')

    def test_a_room_that_includes_another_than_it_may_is_found(self):
        planted = {'display/raster/band.h': '', 'display/colors/table.h': ''}
        self.assert_breach({**planted, 'display/colors/table.cpp': '#  include "../raster/band.h"\n'},
                           'display/colors/table.cpp:1: the room display/colors/ may not include display/raster/band.h')
        self.assert_breach({**planted, 'display/raster/band.cpp': '#include "display/plot.h"\n'},
                           'display/raster/band.cpp:1: the room display/raster/ may not include display/plot.h')

    def test_a_room_may_include_what_is_told(self):
        self.write({**SOUND, 'display/raster/band.h': '#include "display/colors/table.h"\n',
                    'display/colors/table.h': '', 'display/tools/tool.cpp': '#include "display/plot.h"\n',
                    'display/plot.cpp': '#include "display/raster/band.h"\n'})
        self.build()
        self.assertEqual(self.check()[0], 0, self.check()[1])

    def test_a_folder_without_a_floor_is_found(self):
        self.assert_breach({'extras/more.cpp': ''}, 'extras/: this folder has no floor')

    def test_a_program_that_links_widgets_is_found(self):
        self.assert_breach({}, 'trevia/trevia: links libQt5Widgets.so.5', '-lQt5Widgets')

    def test_a_source_that_was_not_compiled_is_found(self):
        self.write(SOUND)
        self.build()
        self.write({'host/late.cpp': ''})
        self.assertIn('host/late.cpp: not built, so not checked', self.check()[1])


if __name__ == '__main__':
    unittest.main()
