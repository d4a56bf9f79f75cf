"""The file trees: kinds, sizes, creation and removal."""

import os
import shutil
import subprocess
from concurrent.futures import ThreadPoolExecutor
from contextlib import contextmanager
from dataclasses import dataclass
from pathlib import Path

SEED = 20
REMOVERS = 32  # threads


@dataclass(frozen=True)
class Kind:
    """One kind of tree for the comparison."""

    name: str
    text: str  # for the report
    quick_scale: float


KINDS = (
    Kind("small", "many small files of mixed kinds, most of a size others have too, "
         "a quarter of them copies", 0.1),
    Kind("onesize", "files of 64 KiB, all of one kind, alike in their first 4 KiB, "
         "a tenth of them copies", 0.2),
    Kind("late", "files of 32 MiB in fours: two equal, two different in the last 16 bytes only",
         0.17),
    Kind("photos", "pictures of 200 KiB to 4 MiB, 15 in a hundred of them copies", 0.1),
    Kind("walk", "empty space only, each file with a size of its own: nothing needs reading", 0.1),
)


@dataclass(frozen=True)
class Corpus:
    """One tree on the disk."""

    folder: Path
    files: int
    folders: int
    bytes: int


class CorpusMaker:
    """Makes trees below one folder."""

    def __init__(self, make_corpus, work, keep):
        self._make_corpus = str(make_corpus)
        self._work = Path(work)
        self._keep = keep

    @contextmanager
    def made(self, name, kind, *options):
        """The tree `name` of a kind, for a `with` block. Removed afterwards unless trees are kept, so
        that there is only one on the disk at a time."""
        folder = self._work / name
        try:
            yield write(self._make_corpus, folder, kind, *options)
        finally:
            if not self._keep:
                remove(folder)


def write(make_corpus, folder, kind, *options):
    """Makes the tree of a kind in a new folder and returns it."""
    command = [str(make_corpus), "--kind", kind, "--seed", str(SEED), "--out", str(folder)]
    made = subprocess.run(command + list(options), stdout=subprocess.PIPE, text=True, check=True)
    os.sync()  # or write-back would disturb the first runs
    counts = dict(line.split() for line in made.stdout.splitlines())
    return Corpus(folder, *(int(counts[key]) for key in ("files", "folders", "bytes")))


def remove(folder):
    """Removes a tree, if it exists. Uses many threads: on a disk mounted with "discard" each removal
    waits for the device."""
    with ThreadPoolExecutor(REMOVERS) as pool:
        for directory, _, names in os.walk(folder):
            pool.submit(remove_files, directory, names)
    if os.path.exists(folder):
        shutil.rmtree(folder)


def remove_files(directory, names):
    """Removes the named files of one folder."""
    for name in names:
        os.unlink(os.path.join(directory, name))
