# SPDX-License-Identifier: GPL-3.0-or-later
"""Print queues of the tour's own: a CUPS scheduler in a folder, reached through a socket there. No right of
the system is needed; a queue prints to nowhere and keeps what was sent to it."""

import glob
import os

from servants import answer, tool
from waiting import Broken, wait_for

_SCHEDULER = """Listen {folder}/socket
Browsing No
WebInterface No
DefaultAuthType None
PreserveJobFiles Yes
DirtyCleanInterval 0
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order allow,deny
Allow all
</Limit>
</Policy>
"""

_FILES = """ServerRoot {folder}/etc
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
CacheDir {folder}/cache
StateDir {folder}/state
AccessLog {folder}/access
ErrorLog {folder}/log
PageLog {folder}/pages
CreateSelfSignedCerts no
FileDevice Yes
"""

_SYSTEM = "/usr/sbin"


class Printer:
    def __init__(self, servants, folder, env):
        """Starts the scheduler, and points `env` at it."""
        self._folder = folder
        for name in ("spool/tmp", "cache", "state", "etc"):
            os.makedirs(os.path.join(folder, name))
        env["CUPS_SERVER"] = os.path.join(folder, "socket")
        self._env = env
        servants.start("cupsd", [tool("cupsd", _SYSTEM), "-f", "-c", self._file("cupsd.conf", _SCHEDULER),
                                 "-s", self._file("cups-files.conf", _FILES)], env=env)
        wait_for("the print scheduler", lambda: os.path.exists(env["CUPS_SERVER"]))

    def add_queue(self, name, default=False):
        lpadmin = tool("lpadmin", _SYSTEM)
        answer([lpadmin, "-p", name, "-E", "-m", "raw", "-v", "file:///dev/null"], env=self._env)
        if default:
            answer([lpadmin, "-d", name], env=self._env)

    def await_paper(self, number, queue):
        """Path of the document of the job with the number, once it has arrived whole in the queue."""
        wait_for(f"print job {number}", lambda: len(self._jobs()) >= number)
        job = self._jobs()[number - 1]
        with open(job, "rb") as attributes:
            if f"/printers/{queue}".encode() not in attributes.read():
                raise Broken(f"job {number} isn't for {queue}")
        return self._document(job)

    def _jobs(self):
        return [job for job in sorted(glob.glob(os.path.join(self._folder, "spool", "c?????")))
                if os.path.exists(self._document(job))]

    @staticmethod
    def _document(job):
        # "c" and the number hold the attributes; "d", the number and "-001" the document.
        folder, name = os.path.split(job)
        return os.path.join(folder, "d" + name[1:] + "-001")

    def _file(self, name, text):
        path = os.path.join(self._folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text.format(folder=self._folder))
        return path
