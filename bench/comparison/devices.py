"""Devices as slow as real ones, on which a tree is compared.

Each device makes its tree while it is fast, and is mounted anew before each run, so that nothing of it
is in the page cache. What it counts during a run is known when it is unmounted.
"""

import os
import subprocess
import time
from pathlib import Path

from . import corpora
from .contest import Refusal

UNMOUNT_PATIENCE = 60.0  # seconds
READ_AHEAD_KIB = 128  # the kernel's own for a disk; a loop device is given more


class Device:
    """What a disk and a network have in common. `work` is an empty folder; `simulator` the program."""

    counted = ()  # names of the numbers that the simulator writes

    def __init__(self, simulator, work):
        self._simulator = str(simulator)
        self._work = Path(work)
        self._figures = self._work / "figures-of-device"
        self._mounted = False
        self.folder = self._work / "mounted"
        self.folder.mkdir()
        self.counts = {}  # of the last run

    def prepare(self, _mode):
        """Mounts the device anew."""
        self.end()
        self._figures.unlink(missing_ok=True)
        self._mount()
        self._mounted = True

    def end(self):
        """Unmounts the device and reads what it has counted."""
        if not self._mounted:
            return
        self._mounted = False
        self._unmount()
        deadline = time.monotonic() + UNMOUNT_PATIENCE
        while not self._figures.exists():
            if time.monotonic() > deadline:
                raise Refusal(f"{self._simulator} did not end")
            time.sleep(0.05)
        numbers = self._figures.read_text(encoding="ascii").split()
        self.counts = dict(zip(self.counted, map(int, numbers)))

    def _mount(self):
        raise NotImplementedError

    def _unmount(self):
        raise NotImplementedError


class SlowDisk(Device):
    """A rotating disk of 7,200 turns a minute with one arm, and ext4 on it."""

    counted = ("transfers", "seeks", "bytes", "ms of seeking")

    def __init__(self, simulator, work, size):
        super().__init__(simulator, work)
        self._image = self._work / "image"
        self._served = self._work / "served"
        self._served.mkdir()
        self._loop = None
        with open(self._image, "wb") as image:
            image.truncate(size)
        # Otherwise the kernel fills tables in the background, while programs are measured.
        run("mkfs.ext4", "-q", "-m", "0", "-E", "lazy_itable_init=0,lazy_journal_init=0",
            self._image)

    def fill(self, make_corpus, kind, *options):
        """Makes the tree while the disk is fast."""
        run("mount", "-o", "loop", self._image, self.folder)
        try:
            return corpora.write(make_corpus, self.folder / kind, kind, *options)
        finally:
            run("umount", self.folder)

    def _mount(self):
        run(self._simulator, self._image, self._served, "--statistics", self._figures)
        self._loop = output_of("losetup", "--find", "--show", self._served / "disk")
        queue = Path("/sys/block") / Path(self._loop).name / "queue"
        (queue / "rotational").write_text("1", encoding="ascii")
        (queue / "read_ahead_kb").write_text(str(READ_AHEAD_KIB), encoding="ascii")
        (queue / "scheduler").write_text("mq-deadline", encoding="ascii")
        run("mount", self._loop, self.folder)

    def _unmount(self):
        run("umount", self.folder)
        run("losetup", "--detach", self._loop)
        run("umount", "--lazy", self._served)


class SlowNetwork(Device):
    """A volume on which each call takes a while, however many are under way. Nothing is cached."""

    counted = ("calls", "most at once")

    def __init__(self, simulator, work, delay):
        super().__init__(simulator, work)
        self._delay = delay  # milliseconds
        self._source = self._work / "source"
        self._source.mkdir()

    def fill(self, make_corpus, kind, *options):
        """Makes the tree on the disk below."""
        tree = corpora.write(make_corpus, self._source / kind, kind, *options)
        return corpora.Corpus(self.folder / kind, tree.files, tree.folders, tree.bytes)

    def _mount(self):
        run(self._simulator, self._source, self.folder, "--delay", str(self._delay),
            "--statistics", self._figures)

    def _unmount(self):
        run("umount", self.folder)


def can_be_made():
    """Why no device can be simulated here; empty if one can."""
    if os.geteuid() != 0:
        return "only root can mount devices"
    return "" if os.path.exists("/dev/fuse") else "this system has no /dev/fuse"


def run(*command):
    """Runs a command that must succeed."""
    subprocess.run(list(map(str, command)), check=True)


def output_of(*command):
    """The output of a command that must succeed."""
    return subprocess.run(list(map(str, command)), check=True, stdout=subprocess.PIPE,
                          text=True).stdout.strip()
