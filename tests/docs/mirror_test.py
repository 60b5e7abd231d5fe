"""Every source has a test of its name where its folder is repeated below tests/unit, or a line here that says where it
is tested instead; and every test there lies in the folder of some source.

    /usr/bin/python3 mirror_test.py
"""
import glob
import os
import sys
import unittest

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

WINDOW = 'only the real window shows what it does'
COMMAND = 'a command of the program, which is run as its user runs it'
ELSEWHERE = {
    'src/app/graph_guidance.cpp': ('tests/window/graphs_test.py', WINDOW),
    'src/app/ground_caption.cpp': ('tests/window/graphs_test.py', WINDOW),
    'src/app/ground_captions.cpp': ('tests/window/graphs_test.py', WINDOW),
    'src/app/ground_scale.cpp': ('tests/window/graphs_test.py', WINDOW),
    'src/app/head_picture.cpp': ('tests/window/report_test.py', WINDOW),
    'src/app/interrupted_examinations.cpp': ('tests/window/interrupted_test.py', WINDOW),
    'src/app/interrupted_view.cpp': ('tests/window/interrupted_test.py', WINDOW),
    'src/app/main.cpp': ('tests/window/journey_test.py', WINDOW),
    'src/app/name_suggestions.cpp': ('tests/window/names_test.py', WINDOW),
    'src/app/notes_guidance.cpp': ('tests/window/graphs_test.py', WINDOW),
    'src/app/notes_panel.cpp': ('tests/window/graphs_test.py', WINDOW),
    'src/app/program.cpp': ('tests/window/journey_test.py', WINDOW),
    'src/app/report_windows.cpp': ('tests/window/report_test.py', WINDOW),
    'src/app/strip_marks.cpp': ('tests/window/graphs_test.py', WINDOW),
    'src/app/veils.cpp': ('tests/window/graphs_test.py', WINDOW),
    'src/app/window_places.cpp': ('tests/window/small_screens_test.py', WINDOW),
    'src/app/room_aids.cpp': ('tests/window/watchful_test.py', WINDOW),
    'src/platform/headless/headless_platform.cpp': (
        'tests/unit/frame/print_image_test.cpp', 'its printer records what these tests compare'),
    'src/platform/page/page_writer.cpp': ('tests/unit/platform/qt/every_screen_test.cpp', 'one of the screens'),
    'src/platform/posix/console.cpp': (
        'tests/unit/tools/recording_tool/unfinished_file_test.cpp', 'an interruption ends the process'),
    'src/platform/qt/desktop_wakefulness.cpp': ('tests/window/watchful_test.py', 'needs a desktop that is asked'),
    'src/platform/qt/page_note.cpp': ('tests/window/trial_test.py', 'a printed page'),
    'src/platform/windows/console.cpp': ('tests/windows/recording_tool_test.py', 'needs the system\'s console'),
    'src/platform/windows/file_lock.cpp': ('tests/unit/platform/files_test.cpp', 'the same rules on every system'),
    'src/platform/windows/folders.cpp': ('tests/windows/program_test.py', 'one call of the standard library'),
    'src/platform/windows/system_wakefulness.cpp': ('tests/windows/program_test.py', 'one call of the system'),
    'src/recording/folder_lock.cpp': ('tests/journeys/two_programs_test.cpp', 'needs two programs'),
    'src/recording/interrupted_file.cpp': ('tests/unit/recording/interrupted_test.cpp', 'a whole recovery each'),
    'src/recording/safe_keeping.cpp': ('tests/unit/recording/data_file_test.cpp', 'a whole recording each'),
    'src/recording/temporary_file.cpp': ('tests/unit/recording/data_file_test.cpp', 'a whole recording each'),
    'src/report/load_report.cpp': ('tests/unit/report/report_window_test.cpp', 'fills that window'),
    'src/report/open_report.cpp': ('tests/unit/report/report_window_test.cpp', 'opens that window'),
    'src/report/report_commands.cpp': ('tests/unit/report/report_window_test.cpp', 'the buttons of that window'),
    'src/wiring/main_wiring.cpp': ('tests/unit/frame/commands_test.cpp', 'every press of a test goes through it'),
    'src/wiring/report_wiring.cpp': (
        'tests/unit/report/report_window_test.cpp', 'every press of a test goes through it'),
    'tools/instrument/pseudo_terminal.cpp': (
        'tests/unit/tools/instrument/session_test.cpp', 'a session is played on it'),
    'tools/recording_tool/analyse_command.cpp': ('tests/programs/recording_tool_test.py', COMMAND),
    'tools/recording_tool/analysis_tables.cpp': ('tests/programs/recording_tool_test.py', COMMAND),
    'tools/recording_tool/batch_row.cpp': ('tests/unit/tools/recording_tool/batch_test.cpp', 'a batch is its rows'),
    'tools/recording_tool/edf_file.cpp': (
        'tests/unit/tools/recording_tool/edf_import_test.cpp', 'the library\'s own reading, with its errors'),
    'tools/recording_tool/info_commands.cpp': ('tests/programs/recording_tool_test.py', COMMAND),
    'tools/recording_tool/messages.cpp': ('tests/programs/recording_tool_test.py', 'writes to standard error'),
    'tools/recording_tool/recording_guard.cpp': (
        'tests/unit/tools/recording_tool/recovery_test.cpp', 'guards the recovery'),
    'tools/recording_tool/program/command_line.cpp': ('tests/programs/recording_tool_test.py', COMMAND),
    'tools/recording_tool/program/main.cpp': ('tests/programs/recording_tool_test.py', COMMAND),
    'tools/recording_tool/program/report_command.cpp': ('tests/programs/recording_tool_test.py', COMMAND),
    'tools/recording_tool/program/report_page.cpp': ('tests/programs/recording_tool_test.py', COMMAND),
}


def found(pattern):
    return {os.path.relpath(path, SOURCE).replace(os.sep, '/')
            for path in glob.glob(os.path.join(SOURCE, pattern), recursive=True)}


def test_of(source):
    """tests/unit/FOLDER/NAME_test.cpp, without "src"."""
    return 'tests/unit/' + source.removeprefix('src/').removesuffix('.cpp') + '_test.cpp'


def folder_of(test):
    below = os.path.dirname(test.removeprefix('tests/unit/'))
    return below if below.startswith('tools/') else 'src/' + below


class MirrorTest(unittest.TestCase):
    def setUp(self):
        self.sources = found('src/**/*.cpp') | found('tools/**/*.cpp')
        self.assertGreater(len(self.sources), 150)

    def test_every_source_has_a_test_of_its_name_or_a_line_that_says_where_it_is_tested(self):
        without = {source for source in self.sources if not os.path.exists(os.path.join(SOURCE, test_of(source)))}
        self.assertEqual(sorted(without - set(ELSEWHERE)), [], 'write %s for it' % 'tests/unit/FOLDER/NAME_test.cpp')

    def test_every_line_still_applies(self):
        for source, (test, reason) in ELSEWHERE.items():
            self.assertIn(source, self.sources)
            self.assertFalse(os.path.exists(os.path.join(SOURCE, test_of(source))), '%s has a test' % source)
            self.assertTrue(os.path.exists(os.path.join(SOURCE, test)), test)
            self.assertTrue(reason)

    def test_every_test_lies_in_the_folder_of_a_source(self):
        for test in found('tests/unit/*/**/*_test.cpp'):
            self.assertTrue(os.path.isdir(os.path.join(SOURCE, folder_of(test))), test)


if __name__ == '__main__':
    result = unittest.main(verbosity=1, exit=False).result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed - len(result.skipped), failed))
    sys.exit(failed > 0)
