# SPDX-License-Identifier: GPL-3.0-or-later
"""Processes of the tour's own: each is started here, and none outlives the tour."""

import os
import shutil
import signal
import subprocess

from waiting import Broken

_END = 10  # seconds that a process has to end when asked


def tool(name, *folders):
    """Path of a program; a missing one is named, with no guess at what it is for."""
    path = shutil.which(name) or shutil.which(name, path=os.pathsep.join(folders) or None)
    if not path:
        raise Broken(f"{name} is not installed (see packaging/packages.txt)")
    return path


def answer(command, env=None, cwd=None, check=True):
    """Runs a command to its end and returns what it wrote; its failure is ours."""
    done = subprocess.run(command, env=env, cwd=cwd, capture_output=True, text=True, errors="replace")
    if check and done.returncode != 0:
        said = (done.stderr or done.stdout).strip().splitlines()
        raise Broken(f"{os.path.basename(command[0])} ended with {done.returncode}: {said[-1] if said else ''}")
    return done.stdout


class Servants:
    """The processes that run beside the tour, ended in the opposite order of their start."""

    def __init__(self, logs):
        os.makedirs(logs)
        self._logs = logs
        self._running = []

    def start(self, name, command, **how):
        """Starts a process whose output goes to `name`.log in the folder of logs."""
        with open(os.path.join(self._logs, name + ".log"), "ab") as log:
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=log, **how)
        self._running.append(process)
        return process

    def kill(self, process):
        """Ends a process as a power cut does."""
        process.send_signal(signal.SIGKILL)
        process.wait(_END)
        self._running.remove(process)

    def end_all(self):
        while self._running:
            process = self._running.pop()
            if process.poll() is None:
                process.terminate()
            try:
                process.wait(_END)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait(_END)
