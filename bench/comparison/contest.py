"""Compares all programs on one tree: first what they find, then how long they take."""

import time
from dataclasses import dataclass, field

from .programs import Program, collected_by_tarvin
from .timing import drop_caches, spread

# A peer slower than tarvin by this factor is not measured further.
TIMES_OURS = 10
# Seconds before which no run is stopped: on a small tree the start-up time alone may exceed the
# factor.
LEAST_LIMIT = 2.0

WARM = "warm"
COLD = "cold"


class Caches:
    """Brings the caches into a known state before each run. A warm run is prepared anew each time,
    because some programs tell the system to forget what they have read. `warmer` is a program that
    reads every file that a finder may read."""

    def __init__(self, watch, folder, warmer, limit):
        self._watch = watch
        self._folder = folder
        self._warmer = warmer
        self._limit = limit

    def prepare(self, mode):
        """Before one run."""
        if mode == COLD:
            drop_caches()
        else:
            self._watch.run(self._warmer, self._folder, self._limit)


class Refusal(Exception):
    """The comparison cannot continue; the text is the reason."""


@dataclass
class Entry:
    """The results of one program on one tree."""

    program: Program
    runs: dict = field(default_factory=lambda: {WARM: [], COLD: []})
    stopped_after: float | None = None  # seconds at which a run was stopped
    too_slow: float | None = None  # seconds of a run that exceeded the limit but ended
    trouble: str = ""  # why its times are not valid

    @property
    def is_out(self):
        """Whether it is excluded from further runs on this tree."""
        return bool(self.stopped_after or self.too_slow or self.trouble)

    def wall(self, mode):
        """The spread of its wall times; None without runs."""
        return spread(run.wall for run in self.runs[mode]) if self.runs[mode] else None

    def cpu(self, mode):
        """The median of its CPU times; None without runs."""
        runs = self.runs[mode]
        return spread(run.cpu for run in runs).median if runs else None

    def peak(self, mode):
        """The highest peak memory of its runs; None without runs."""
        return max((run.peak for run in self.runs[mode]), default=None)


class Contest:
    """All programs on one tree. The first of `entries` is tarvin. `state` has a method prepare(mode),
    called before each run; a peer slower than tarvin by the factor `patience` is not run further."""

    def __init__(self, watch, corpus, programs, state, limit, patience=TIMES_OURS):
        self._watch = watch
        self._state = state
        self._limit = limit
        self._patience = patience
        self.corpus = corpus
        self.entries = [Entry(program) for program in programs]
        self.rounds = {WARM: 0, COLD: 0}  # begun
        self._mode = WARM  # of check()
        self._counts = False
        self.judged_by = []
        self.sets = 0

    @property
    def ours(self):
        """The entry of tarvin."""
        return self.entries[0]

    def check(self, mode=WARM, counts=False):
        """Runs each program once and compares the results. Raises Refusal if our sets are not those of
        the programs that compare byte for byte. The run is a timed one only if it `counts`."""
        self._mode = mode
        self._counts = counts
        expected, our_wall = self._check_ours()
        judges = [entry for entry in self.entries if entry.program.judges]
        others = [e for e in self.entries[1:] if e not in judges]
        slow = self._slow_limit(our_wall)
        for entry in judges + others:
            # Without a judge there is no verdict, so the first one has no time limit.
            needed = entry.program.judges and not self.judged_by
            impatient = entry.program.is_peer and not needed
            self._check_other(entry, expected, slow if impatient else self._limit, slow)
        if not self.judged_by:
            raise Refusal("no program that compares byte for byte came to an end")

    def race(self, mode, rounds, budget):
        """Times all remaining programs in turn: once per round, each round beginning with the next
        program, so that a slow drift of the machine affects all alike. After `budget` seconds no
        further round begins."""
        entries = self.entries
        deadline = time.monotonic() + budget
        for number in range(rounds):
            if number > 0 and time.monotonic() > deadline:
                break
            self.rounds[mode] += 1
            start = number % len(entries)
            for entry in entries[start:] + entries[:start]:
                if not entry.is_out:
                    self._time(entry, mode)

    def _check_ours(self):
        """Returns the sets of tarvin and the seconds of its run."""
        run = self._run(self.ours.program, self._limit, self._mode)
        if run is None or run.status != 0:
            raise Refusal(f"our own run failed: {failure_text(run, self._limit)}")
        self._keep(self.ours, run)
        text = self._watch.text(self.ours.program)
        collected = collected_by_tarvin(text)
        if collected != self.corpus.files:
            raise Refusal(f"we looked at {collected} files of {self.corpus.files}")
        groups = self.ours.program.parse(text)
        self.sets = len(groups)
        return groups, run.wall

    def _check_other(self, entry, expected, limit, slow):
        """Runs one other program and compares its sets with those of tarvin."""
        run = self._run(entry.program, limit, self._mode)
        if run is None:
            entry.stopped_after = limit
            return
        if run.status != 0:
            entry.trouble = failure_text(run, limit)
            return
        if entry.program.parse:
            found = entry.program.parse(self._watch.text(entry.program))
            self._compare(entry, found, expected)
        if entry.program.is_peer and run.wall > slow:
            entry.too_slow = run.wall
        self._keep(entry, run)

    def _keep(self, entry, run):
        """Keeps a run of check(), if it counts."""
        if self._counts:
            self.rounds[self._mode] = 1
            entry.runs[self._mode].append(run)

    def _compare(self, entry, found, expected):
        """Notes whether a program found our sets. With a judge, another result ends it all."""
        same = found == expected
        if not same and entry.program.judges:
            raise Refusal(difference_text(entry.program.name, expected, found))
        if not same:
            entry.trouble = "found other sets"
        elif entry.program.judges:
            self.judged_by.append(entry.program.name)

    def _time(self, entry, mode):
        """One timed run."""
        limit = self._limit
        if entry.program.is_peer and self.ours.runs[mode]:
            limit = self._slow_limit(self.ours.wall(mode).median)
        run = self._run(entry.program, limit, mode)
        if run is None:
            entry.stopped_after = limit
        elif run.status != 0:
            entry.trouble = failure_text(run, limit)
        else:
            entry.runs[mode].append(run)
        if entry is self.ours and entry.is_out:
            raise Refusal(f"our own run failed: {failure_text(run, limit)}")

    def _run(self, program, limit, mode):
        """One run from a known state."""
        self._state.prepare(mode)
        return self._watch.run(program, self.corpus.folder, limit)

    def _slow_limit(self, our_wall):
        """Returns the time limit for a peer, in seconds."""
        return min(self._limit, max(LEAST_LIMIT, self._patience * our_wall))


def failure_text(run, limit):
    """Returns why a run is not valid."""
    return f"took over {limit:.0f} s" if run is None else f"ended with status {run.status}"


def difference_text(judge, ours, theirs):
    """Describes how two results differ, with an example of each direction."""
    lines = [f"our sets are not those of {judge}: {len(ours)} against {len(theirs)}"]
    for title, groups in (("only ours", ours - theirs), (f"only {judge}", theirs - ours)):
        if groups:
            lines.append(f"  {title}: {len(groups)}, such as")
            lines += [f"    {path}" for path in sorted(min(groups, key=sorted))]
    return "\n".join(lines)
