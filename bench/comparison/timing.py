"""Runs one program at a time and tells what it cost."""

import os
import signal
import statistics
import subprocess
from dataclasses import dataclass
from pathlib import Path

DROP_CACHES = Path("/proc/sys/vm/drop_caches")
EVERYTHING = "3"  # page cache, directory entries and inodes
COLD_NOTE = "with the caches of the system emptied before each run"


@dataclass(frozen=True)
class Run:
    """What one run cost."""

    wall: float  # seconds
    cpu: float  # seconds, user and system together
    peak: int  # bytes resident at most
    status: int  # exit status, or 128 and a signal's number


@dataclass(frozen=True)
class Spread:
    """Median, least and most of one figure over some runs."""

    median: float
    least: float
    most: float


def spread(values):
    """The spread of at least one value."""
    values = list(values)
    return Spread(statistics.median(values), min(values), max(values))


def can_drop_caches():
    """Whether this process may empty the system's caches."""
    return os.access(DROP_CACHES, os.W_OK)


def drop_caches():
    """Makes the next run start cold. Dirty pages cannot be dropped, so they are written first."""
    os.sync()
    DROP_CACHES.write_text(EVERYTHING, encoding="ascii")


class StopWatch:
    """Runs programs through the `measure` helper, one at a time."""

    def __init__(self, measure, work):
        self._measure = str(measure)
        self._figures = Path(work) / "figures"
        self._output = Path(work) / "output"
        self._listing = Path(work) / "listing"

    def run(self, program, folder, limit):
        """Runs `program` on `folder`; a Run, or None if it took more than `limit` seconds and was
        stopped. What it lists goes to a file for everybody alike."""
        for file in (self._figures, self._output, self._listing):
            file.unlink(missing_ok=True)
        command = [self._measure, str(self._figures)] + program.arguments(folder, self._listing)
        with open(self._output, "wb") as output:
            # A session of its own: stopping it also stops what it has started.
            process = subprocess.Popen(
                command,
                stdin=subprocess.DEVNULL,
                stdout=output,
                stderr=subprocess.DEVNULL,
                cwd=self._output.parent,
                env=os.environ | {"LC_ALL": "C"},
                start_new_session=True,
            )
            if not finished(process, limit):
                return None
        return read_figures(self._figures)

    def text(self, program):
        """What the last run, which was one of `program`, has listed."""
        file = self._listing if program.writes_listing else self._output
        return file.read_text(encoding="utf-8")


def finished(process, limit):
    """Waits; False if the process had to be stopped after `limit` seconds."""
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
    """Reads what `measure` wrote."""
    wall, user, system, peak_kib, status = file.read_text(encoding="ascii").split()
    return Run(float(wall), float(user) + float(system), int(peak_kib) * 1024, int(status))
