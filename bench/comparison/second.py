"""A second scan of an unchanged tree, after one whose results were stored."""

import shutil
import time
from dataclasses import dataclass, field, replace

from .contest import COLD, WARM, Contest, Refusal, failure_text
from .programs import FOLDER, LISTING, collected_by_tarvin
from .timing import spread

FILES = 100_000
QUICK_FILES = 10_000
FIRST = "first"
SECOND = "second"
# Seconds after which tarvin trusts the dates of a file: a younger one is read in each scan.
SETTLING = 62.0

CZKAWKA = "czkawka"
# -c and -Z cache the hashes of files of every size, of which the defaults leave out those below 256
# KiB; -u caches the hashes of beginnings, too.
CZKAWKA_CACHED = ("czkawka_cli", "dup", "-m", "1", "-c", "1", "-Z", "1", "-u", "-C", LISTING, "-d",
                  FOLDER)


@dataclass
class Rescan:
    """The results of one program."""

    program: object
    remembers: bool  # otherwise a second scan is like the first
    runs: dict = field(default_factory=dict)  # Runs by mode and FIRST or SECOND
    trouble: str = ""  # why its times are not valid

    def wall(self, mode, scan):
        """The spread of wall times; None without runs."""
        runs = self.runs.get((mode, scan))
        return spread(run.wall for run in runs) if runs else None

    def cpu(self, mode, scan):
        """The median of CPU times; None without runs."""
        runs = self.runs.get((mode, scan))
        return spread(run.cpu for run in runs).median if runs else None

    @property
    def peak(self):
        """The highest peak memory; None without runs."""
        return max((run.peak for runs in self.runs.values() for run in runs), default=None)


def remembering(tarvin):
    """tarvin with its memory of earlier scans."""
    command = (*tarvin.command[:-1], "--remember", tarvin.command[-1])
    return replace(tarvin, name=f"{tarvin.name} --remember", command=command)


def programs_of(tarvin, peers):
    """The results to fill: ours with and without a memory, and the peer that has a cache."""
    results = [Rescan(remembering(tarvin), True), Rescan(tarvin, False)]
    for peer in peers:
        if peer.name == CZKAWKA:
            cached = replace(peer, name="czkawka, with its cache", command=CZKAWKA_CACHED)
            results.append(Rescan(cached, True))
    return results


class Rescans:
    """All programs on one tree, which must be as old as SETTLING when they are measured. Each keeps
    what it stores in a home of its own, from its first scan to its second."""

    def __init__(self, watch, corpus, tarvin, peers, caches, limit, home):
        self._watch = watch
        self._caches = caches
        self._limit = limit
        self._home = home
        self._made = time.monotonic()
        self._judges = [tarvin] + [peer for peer in peers if peer.judges][:1]
        self._sets = frozenset()
        self.corpus = corpus
        self.results = programs_of(tarvin, peers)
        self.rounds = {WARM: 0, COLD: 0}
        self.sets = 0
        self.judged_by = []

    @property
    def ours(self):
        """tarvin with its memory."""
        return self.results[0]

    def age(self):
        """Waits until the dates of the tree have settled."""
        time.sleep(max(0.0, self._made + SETTLING - time.monotonic()))

    def check(self):
        """Finds the sets of the tree. Raises Refusal if a program that compares byte for byte finds
        others."""
        contest = Contest(self._watch, self.corpus, self._judges, self._caches, self._limit)
        contest.check()
        self._sets = contest.ours.program.parse(self._text_of(contest.ours.program))
        self.sets = len(self._sets)
        self.judged_by = contest.judged_by

    def race(self, mode, rounds, budget):
        """Times both scans of all programs in turn, each round beginning with the next program. After
        `budget` seconds no further round begins."""
        deadline = time.monotonic() + budget
        for number in range(rounds):
            if number > 0 and time.monotonic() > deadline:
                break
            start = number % len(self.results)
            self.rounds[mode] += 1
            for result in self.results[start:] + self.results[:start]:
                self._measure(result, mode)

    def _measure(self, result, mode):
        """The first and the second scan of one program."""
        shutil.rmtree(self._home, ignore_errors=True)
        self._home.mkdir()
        for scan in (FIRST, SECOND) if result.remembers else (FIRST,):
            if not result.trouble:
                self._time(result, mode, scan)

    def _time(self, result, mode, scan):
        """One scan."""
        self._caches.prepare(mode)
        run = self._watch.run(result.program, self.corpus.folder, self._limit, self._home)
        if run is None or run.status != 0:
            result.trouble = failure_text(run, self._limit)
        elif not self._found_all(result.program):
            result.trouble = "found other sets"
        else:
            result.runs.setdefault((mode, scan), []).append(run)
        if result.trouble and not result.program.is_peer:
            raise Refusal(f"{result.program.name}, {scan} scan: {result.trouble}")

    def _found_all(self, program):
        """Whether the last run found the sets."""
        text = self._watch.text(program)
        if not program.is_peer and collected_by_tarvin(text) != self.corpus.files:
            return False
        return program.parse(text) == self._sets

    def _text_of(self, program):
        """What a program lists, with a warm cache."""
        self._caches.prepare(WARM)
        run = self._watch.run(program, self.corpus.folder, self._limit)
        if run is None or run.status != 0:
            raise Refusal(f"{program.name} failed: {failure_text(run, self._limit)}")
        return self._watch.text(program)
