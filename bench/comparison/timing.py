"""Runs one program at a time and measures it."""

import os
import shutil
import signal
import statistics
import subprocess
from dataclasses import dataclass
from pathlib import Path

DROP_CACHES = Path("/proc/sys/vm/drop_caches")
EVERYTHING = "3"  # page cache, directory entries and inodes
COLD_NOTE = "with the kernel's caches dropped before each run"


@dataclass(frozen=True)
class Run:
    """The measurements of one run."""

    wall: float  # seconds
    cpu: float  # seconds, user and system together
    peak: int  # peak resident bytes
    status: int  # exit status, or 128 plus the signal number


@dataclass(frozen=True)
class Spread:
    """Median, minimum and maximum of one figure over several runs."""

    median: float
    least: float
    most: float


def spread(values):
    """The spread of at least one value."""
    values = list(values)
    return Spread(statistics.median(values), min(values), max(values))


def can_drop_caches():
    """Whether this process may drop the kernel's caches."""
    return os.access(DROP_CACHES, os.W_OK)


def drop_caches():
    """Drops the caches. Dirty pages cannot be dropped, so they are written first."""
    os.sync()
    DROP_CACHES.write_text(EVERYTHING, encoding="ascii")


class StopWatch:
    """Runs programs through the `measure` helper, one at a time."""

    def __init__(self, measure, work):
        self._measure = str(measure)
        self._figures = Path(work) / "figures"
        self._output = Path(work) / "output"
        self._listing = Path(work) / "listing"
        self._home = Path(work) / "home"

    def run(self, program, folder, limit, home=None):
        """Runs `program` on `folder`. Returns a Run, or None if it was stopped after `limit` seconds.
        The list of every program goes to a file. Without a given `home` its home is empty, and so are
        its caches."""
        for file in (self._figures, self._output, self._listing):
            file.unlink(missing_ok=True)
        if home is None:
            shutil.rmtree(self._home, ignore_errors=True)
            self._home.mkdir()
        command = [self._measure, str(self._figures)] + program.arguments(folder, self._listing)
        with open(self._output, "wb") as output:
            # A separate session, so that stopping it also stops its child processes.
            process = subprocess.Popen(
                command,
                stdin=subprocess.DEVNULL,
                stdout=output,
                stderr=subprocess.DEVNULL,
                cwd=self._output.parent,
                env=environment(home or self._home),
                start_new_session=True,
            )
            if not finished(process, limit):
                return None
        return read_figures(self._figures)

    def text(self, program):
        """Returns the list of the last run, which must be one of `program`."""
        file = self._listing if program.writes_listing else self._output
        return file.read_text(encoding="utf-8")


def environment(home):
    """The environment of a program whose home is `home`."""
    own = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
    return own | {"LC_ALL": "C", "HOME": str(home)}


def finished(process, limit):
    """Waits. Returns False if the process was stopped after `limit` seconds."""
    try:
        process.wait(limit)
        return True
    except subprocess.TimeoutExpired:
        return False
    finally:
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()


def read_figures(file):
    """Reads the output of `measure`."""
    wall, user, system, peak_kib, status = file.read_text(encoding="ascii").split()
    return Run(float(wall), float(user) + float(system), int(peak_kib) * 1024, int(status))
