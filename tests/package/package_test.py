"""The Debian package: builds it, checks its content, installs it, uses it as an ordinary user, and removes it.

    /usr/bin/python3 package_test.py BUILD_FOLDER

As root the package is installed on this machine and removed again. If it is installed already, or without root, dpkg
unpacks it into a separate root. Debian packages: the groups "run" and "package" of packages.debian.
"""
import glob
import gzip
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE = os.path.dirname(os.path.dirname(HERE))
BUILD = PACKAGE = None  # set by main()
PROGRAMS = ['korvinel', 'korvinel-instrument', 'korvinel-prova']
SIZES = (16, 24, 32, 48, 64, 128, 256)


def run(*arguments, **options):
    """Runs a command and returns its output; raises an AssertionError with the output if it fails."""
    options.setdefault('stdin', subprocess.DEVNULL)
    result = subprocess.run(arguments, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors='replace',
                            check=False, **options)
    if result.returncode != 0:
        raise AssertionError('%s ended with %d:\n%s' % (' '.join(arguments), result.returncode, result.stdout))
    return result.stdout


def state_of_package():
    answer = subprocess.run(['dpkg-query', '-W', '-f', '${db:Status-Status}', 'korvinel'], capture_output=True,
                            text=True, check=False)
    return answer.stdout or 'not-installed'


def setUpModule():
    global PACKAGE
    run('cmake', '--build', BUILD, '--target', 'deb')
    packages = glob.glob(os.path.join(BUILD, 'package', '*.deb'))
    PACKAGE = max(packages, key=os.path.getmtime)


class PackageTest(unittest.TestCase):
    """The content of the package."""

    @classmethod
    def setUpClass(cls):
        cls.root = tempfile.mkdtemp(prefix='korvinel-package-')
        cls.addClassCleanup(shutil.rmtree, cls.root)
        run('dpkg-deb', '--extract', PACKAGE, cls.root)

    def path(self, name):
        return os.path.join(self.root, 'usr', name)

    def read(self, name):
        with open(self.path(name), encoding='utf-8') as file:
            return file.read()

    def field(self, name):
        return run('dpkg-deb', '--field', PACKAGE, name).strip()

    def test_depends_on_its_libraries_fonts_and_translations(self):
        names = [each.split()[0] for each in self.field('Depends').split(', ')]
        for needed in ('libqt6widgets6', 'libqt6printsupport6', 'libc6', 'libstdc++6', 'fonts-inter',
                       'fonts-dejavu-core', 'qt6-translations-l10n'):
            self.assertIn(needed, names)

    def test_is_of_the_version_of_the_sources(self):
        with open(os.path.join(SOURCE, 'CMakeLists.txt'), encoding='utf-8') as file:
            self.assertIn('project(korvinel VERSION %s ' % self.field('Version').split('-')[0], file.read())

    def test_holds_the_programs_each_with_its_man_page(self):
        programs = os.listdir(self.path('bin'))
        for program in PROGRAMS:
            self.assertIn(program, programs)
        for program in programs:
            self.assertTrue(os.access(self.path('bin/' + program), os.X_OK), program)
            with gzip.open(self.path('share/man/man1/%s.1.gz' % program), 'rt', encoding='utf-8') as page:
                text = page.read()
            self.assertIn(program.replace('-', '\\-') + ' \\- ', text)
            self.assertNotIn('@', text)

    def test_man_pages_are_set_without_a_warning(self):
        for page in glob.glob(self.path('share/man/man1/*')):
            said = run('man', '--warnings', '-E', 'UTF-8', '-l', '-Tutf8', '-Z', page,
                       env=dict(os.environ, LC_ALL='C.UTF-8', MANWIDTH='80', MANROFFSEQ=''))
            self.assertNotIn('warning', said)

    def test_the_instruments_man_page_names_every_option(self):
        said = run(self.path('bin/korvinel-instrument'), '--help')
        with gzip.open(self.path('share/man/man1/korvinel-instrument.1.gz'), 'rt', encoding='utf-8') as page:
            text = page.read().replace('\\-', '-')
        options = set(re.findall(r'--fault ([a-z-]+)', said)) | set(re.findall(r'--[a-z]+', said))
        self.assertGreater(len(options), 15)
        for option in options:
            self.assertIn(option, text)

    def test_menu_entries_are_valid_and_start_what_is_there(self):
        entries = glob.glob(self.path('share/applications/*.desktop'))
        self.assertEqual(len(entries), 2)
        for entry in entries:
            self.assertEqual(run('desktop-file-validate', entry), '')
            lines = self.read(os.path.relpath(entry, self.path(''))).splitlines()
            for command in [line[5:].split() for line in lines if line.startswith('Exec=')]:
                if command[0] == 'xdg-open':
                    self.assertTrue(os.path.exists(self.root + command[1]), command[1])
                else:
                    self.assertTrue(os.path.exists(self.path('bin/' + command[0])), command[0])

    def test_the_icon_is_there_in_every_size(self):
        for size in SIZES:
            with open(self.path('share/icons/hicolor/%dx%d/apps/korvinel.png' % (size, size)), 'rb') as file:
                head = file.read(24)
            self.assertEqual((int.from_bytes(head[16:20], 'big'), int.from_bytes(head[20:24], 'big')), (size, size))
        xml.etree.ElementTree.parse(self.path('share/icons/hicolor/scalable/apps/korvinel.svg'))

    def test_the_description_for_software_centres_is_valid(self):
        run('appstreamcli', 'validate', '--no-net', self.path('share/metainfo/org.korvinel.Korvinel.metainfo.xml'))

    def test_the_description_for_software_centres_tells_the_version_and_the_programs(self):
        root = xml.etree.ElementTree.parse(self.path('share/metainfo/org.korvinel.Korvinel.metainfo.xml')).getroot()
        self.assertEqual(root.find('releases/release').get('version'), self.field('Version').split('-')[0])
        self.assertEqual({each.text for each in root.findall('provides/binary')}, set(os.listdir(self.path('bin'))))

    def test_serial_adapters_are_given_to_the_group_dialout(self):
        self.assertIn('GROUP="dialout"', self.read('lib/udev/rules.d/60-korvinel.rules'))

    def test_the_manual_can_be_read_and_printed(self):
        page = self.read('share/doc/korvinel/manuale/manuale.html')
        self.assertNotIn('<p>[', page)
        pictures = [part.split('"')[0] for part in page.split('src="')[1:]]
        self.assertGreater(len(pictures), 5)
        for picture in pictures:
            self.assertTrue(os.path.exists(self.path('share/doc/korvinel/manuale/' + picture)), picture)
        with open(self.path('share/doc/korvinel/manuale/manuale.pdf'), 'rb') as file:
            self.assertEqual(file.read(5), b'%PDF-')

    def test_lintian_finds_nothing_to_complain_of(self):
        said = run('lintian', '--fail-on', 'error,warning', '--allow-root', PACKAGE)
        self.assertEqual([line for line in said.splitlines() if line.startswith(('E:', 'W:'))], [])


class InstalledTest(unittest.TestCase):
    """From the installation to the removal."""

    def setUp(self):
        self.scratch = tempfile.mkdtemp(prefix='korvinel-installed-')
        os.chmod(self.scratch, 0o755)
        self.addCleanup(shutil.rmtree, self.scratch)
        self.on_this_machine = os.getuid() == 0 and state_of_package() == 'not-installed'
        self.root = '/' if self.on_this_machine else os.path.join(self.scratch, 'root')
        self.dpkg = ['dpkg'] if self.on_this_machine else [
            'dpkg', '--root=' + self.root, '--force-not-root', '--force-bad-path', '--force-depends', '--log=/dev/null']

    def install(self):
        if not self.on_this_machine:
            os.makedirs(os.path.join(self.root, 'var/lib/dpkg/updates'))
            os.makedirs(os.path.join(self.root, 'var/lib/dpkg/info'))
            for name in ('status', 'available'):
                open(os.path.join(self.root, 'var/lib/dpkg', name), 'w').close()
        self.addCleanup(self.remove)
        run(*self.dpkg, '--install', PACKAGE)

    def remove(self):
        run(*self.dpkg, '--purge', 'korvinel')

    def files(self):
        """Every path in the root that contains the program's name."""
        places = [os.path.join(self.root, place) for place in ('usr', 'etc', 'var/lib', 'var/cache')]
        return set(run('find', *filter(os.path.isdir, places), '-xdev', '-iname', '*korvinel*',
                       '-not', '-path', '*/app-info/*').split('\n'))

    def use(self):
        """Runs the menu's trial without an instrument as an ordinary user in a virtual display."""
        for script in (os.path.join(HERE, 'installed_program.py'), os.path.join(SOURCE, 'tests/window/driver.py')):
            shutil.copy(script, self.scratch)
        place = os.path.join(self.scratch, 'home')
        os.mkdir(place)
        command = ['/usr/bin/python3', os.path.join(self.scratch, 'installed_program.py'),
                   os.path.join(self.root, 'usr/bin')]
        if os.getuid() == 0:
            os.chmod(place, 0o777)
            command = ['setpriv', '--reuid=nobody', '--regid=nogroup', '--clear-groups', *command]
        return run(*command, cwd=place, env=dict(os.environ, TMPDIR=place), timeout=180)

    def test_the_installed_program_records_an_examination_and_goes_without_a_trace(self):
        before = self.files()
        self.install()
        programs = os.listdir(os.path.join(self.root, 'usr/bin'))
        for program in PROGRAMS:
            self.assertIn(program, programs)
        self.assertIn('the examination is recorded', self.use())
        self.remove()
        self.assertEqual(self.files() - before, set())


def main():
    global BUILD
    BUILD = os.path.abspath(sys.argv.pop(1))
    result = unittest.main(verbosity=2, exit=False, warnings='ignore').result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed - len(result.skipped), failed))
    sys.exit(failed > 0)


main()
