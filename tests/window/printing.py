"""A private print server on loopback, whose one printer writes every job's page to a folder.

Debian packages: cups cups-client cups-daemon cups-filters (and poppler-utils to look at the pages)
The machine's own print system is not touched: the server's settings, queues and its one backend are in a folder that is
removed at the end.
"""
import os
import shutil
import socket
import stat
import subprocess
import tempfile

import driver

SERVER_SETTINGS = '''Listen 127.0.0.1:{port}
Listen {folder}/run/cups.sock
Browsing Off
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Location /admin>
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
'''

FILE_SETTINGS = '''ServerRoot {folder}/etc
ServerBin {folder}/lib
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
CacheDir {folder}/cache
StateDir {folder}/run
ErrorLog {folder}/log/error_log
AccessLog {folder}/log/access_log
PageLog {folder}/log/page_log
'''

# Called with five or six arguments for a job; the sixth is its file, otherwise the job comes on standard input.
BACKEND = '''#!/bin/sh
[ $# -eq 0 ] && { echo 'direct folder "Unknown" "Pages in a folder"'; exit 0; }
cat "${6:--}" > "%s/.job-$1" && mv "%s/.job-$1" "%s/job-$1.pdf"
'''

SYSTEM_PARTS = '/usr/lib/cups'


def free_port():
    with socket.socket() as probe:
        probe.bind(('127.0.0.1', 0))
        return probe.getsockname()[1]


class PrintServer:
    """with PrintServer() as server: programs started within it have the default printer 'Prova'."""

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix='korvinel-cups-')
        os.chmod(self.folder, 0o755)
        self.pages = os.path.join(self.folder, 'pages')
        self.process = None
        try:
            self._prepare()
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def _prepare(self):
        for name in ('etc', 'run', 'spool/tmp', 'cache', 'log', 'pages', 'lib/backend'):
            os.makedirs(os.path.join(self.folder, name))
        # The server may run its backends under another account.
        os.chmod(self.pages, 0o777)
        for part in os.listdir(SYSTEM_PARTS):
            if part != 'backend':
                os.symlink(os.path.join(SYSTEM_PARTS, part), os.path.join(self.folder, 'lib', part))
        self._write('lib/backend/folder', BACKEND % (self.pages, self.pages, self.pages))
        os.chmod(os.path.join(self.folder, 'lib/backend/folder'), stat.S_IRWXU)
        self._write('etc/cupsd.conf', SERVER_SETTINGS.format(port=free_port(), folder=self.folder))
        self._write('etc/cups-files.conf', FILE_SETTINGS.format(folder=self.folder))

    def _write(self, name, text):
        with open(os.path.join(self.folder, name), 'w', encoding='utf-8') as file:
            file.write(text)

    def _start(self):
        etc = os.path.join(self.folder, 'etc')
        with open(os.path.join(self.folder, 'log/output'), 'wb') as log:
            self.process = subprocess.Popen(
                [shutil.which('cupsd') or '/usr/sbin/cupsd', '-f', '-c', os.path.join(etc, 'cupsd.conf'), '-s',
                 os.path.join(etc, 'cups-files.conf')], stdout=log, stderr=log)
        os.environ['CUPS_SERVER'] = os.path.join(self.folder, 'run/cups.sock')
        driver.wait(self._answers, 20, 'the print server')
        self._lpadmin('-p', 'Prova', '-v', 'folder:/pages', '-m', 'raw', '-E')
        self._lpadmin('-d', 'Prova')

    def _answers(self):
        if self.process.poll() is not None:
            raise RuntimeError('the print server ended with %d' % self.process.returncode)
        return subprocess.run(['lpstat', '-r'], capture_output=True, check=False).stdout.strip() == b'scheduler is running'

    @staticmethod
    def _lpadmin(*arguments):
        subprocess.run([shutil.which('lpadmin') or '/usr/sbin/lpadmin', *arguments], check=True, capture_output=True)

    def printed(self):
        """The pages printed so far, oldest first."""
        jobs = [name for name in os.listdir(self.pages) if name.startswith('job-')]
        return [os.path.join(self.pages, name) for name in sorted(jobs, key=lambda name: int(name[4:-4]))]

    def __exit__(self, *_):
        os.environ.pop('CUPS_SERVER', None)
        if self.process is not None:
            driver.end_process(self.process)
        shutil.rmtree(self.folder, ignore_errors=True)


def inked_millimetres(page, background=250):
    """(left, top, right, bottom) of the print on a one-page PDF file, from the paper's corner."""
    dots = 254
    picture = subprocess.run(['pdftoppm', '-r', str(dots), '-gray', page], capture_output=True, check=True).stdout
    width, height, data = grey_picture(picture)
    rows = [data[y * width:(y + 1) * width] for y in range(height)]
    inked = [y for y, row in enumerate(rows) if min(row) < background]
    left = min(next(x for x, value in enumerate(rows[y]) if value < background) for y in inked[::4])
    right = max(width - next(x for x, value in enumerate(reversed(rows[y])) if value < background) for y in inked[::4])
    return tuple(edge * 25.4 / dots for edge in (left, inked[0], right, inked[-1] + 1))


def grey_picture(pgm):
    """Width, height and bytes of a binary PGM picture."""
    kind, width, height, largest = pgm.split(None, 4)[:4]
    assert kind == b'P5' and largest == b'255', (kind, largest)
    return int(width), int(height), pgm[-int(width) * int(height):]


def pages_of(file):
    answer = subprocess.run(['pdfinfo', file], capture_output=True, check=True, text=True).stdout
    return int(next(line.split()[1] for line in answer.splitlines() if line.startswith('Pages:')))
