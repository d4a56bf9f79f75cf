"""One run of bench/compare, from the installed programs to the page."""

import os
import shlex
import shutil
import sys
import time
from contextlib import ExitStack
from dataclasses import dataclass, field
from datetime import datetime, timezone

from . import corpora, disk_image, growth, machine, programs, report, second, timing
from .contest import COLD, WARM, Caches, Contest, Refusal
from .corpora import KINDS, CorpusMaker
from .peer_root import PeerRoot
from .report import rounds_text

GROWTH = "growth"
SECOND = "second"
NAMES = tuple(kind.name for kind in KINDS) + (GROWTH, SECOND)
MILLIONS = "millions"  # only if asked for: it takes half an hour, root, and much memory
MILLIONS_LIMIT = 900  # seconds for one run
HELPERS = ("make_corpus", "floor", "measure")
MOST_COLD_ROUNDS = 3


@dataclass(frozen=True)
class Extent:
    """The extent of a run."""

    rounds: int  # warm
    growth_rounds: int
    limit: float  # seconds for one run of any program
    budget: float  # seconds after which no further round of a mode on a tree begins
    free_bytes: int  # disk space for the largest tree and the results


FULL = Extent(rounds=5, growth_rounds=3, limit=120, budget=90, free_bytes=6 * 2**30)
QUICK = Extent(rounds=3, growth_rounds=2, limit=10, budget=6, free_bytes=2**30)


@dataclass
class Setting:
    """The data about the run for the page."""

    command: str
    date: str
    revision: str
    facts: list  # pairs about the machine
    idle: list  # shares of idle CPU time, before and after the run
    programs: list
    release: str  # of the distribution that the peers come from
    versions: dict  # by package
    absent: list  # names of peers that it does not have
    rounds: dict  # by mode
    why_not_cold: str  # empty if cold runs are made
    limit: float
    budget: float
    texts: dict = field(default_factory=lambda: {kind.name: kind.text for kind in KINDS})


class Session:
    """Measures all programs in turn. `options` is the command line, `helpers` the folder of the
    helper programs, `work` an empty folder on the measured disk."""

    def __init__(self, options, helpers, work, root):
        self._started = time.monotonic()
        self._options = options
        self._extent = QUICK if options.quick else FULL
        self._work = work
        self._make_corpus = helpers / "make_corpus"
        self._watch = timing.StopWatch(helpers / "measure", work)
        self._maker = CorpusMaker(helpers / "make_corpus", work, options.keep)
        self._ours = programs.tarvin(options.tarvin)
        self._floor_walk = programs.floor_walk(helpers / "floor")
        self._floors = [programs.floor(helpers / "floor", threads)
                        for threads in sorted({1, os.cpu_count()})]
        root_of_peers = PeerRoot(root / "build" / "peers", programs.PEERS)
        if not root_of_peers.ready():
            raise Refusal("the other programs could not be installed")
        self._peers = [peer for peer in map(root_of_peers.started, programs.PEERS) if peer]
        self._setting = self._describe(work, root, root_of_peers)
        if shutil.disk_usage(work).free < self._extent.free_bytes:
            raise Refusal(f"{work} needs {self._extent.free_bytes / 2**30:.0f} GiB free")

    def page(self):
        """Runs all chosen measurements. Returns the page."""
        with ExitStack() as trees:
            # Made first, because its dates have to settle.
            rescans = self._rescans(trees) if SECOND in self._options.only else None
            contests, series = self._contests_and_series()
            if rescans:
                self._measure_rescans(rescans)
        self._setting.idle.append(machine.idle_share())
        return report.page(self._setting, contests, series, rescans)

    def _contests_and_series(self):
        """The measurements of first scans."""
        contests = {kind.name: self._contest(kind) for kind in KINDS
                    if kind.name in self._options.only}
        series = []
        if GROWTH in self._options.only:
            series = [self._growth(plan) for plan in (growth.UNIQUE_SIZES, growth.ONE_CLASS)]
        if MILLIONS in self._options.only:
            series.append(self._millions())
        return contests, series

    def _rescans(self, trees):
        """The tree for second scans, which `trees` removes."""
        files = second.QUICK_FILES if self._options.quick else second.FILES
        self._say(f"second: making {files:,} files")
        made = self._maker.made("second", "small", "--files", str(files))
        corpus = trees.enter_context(made)
        caches = Caches(self._watch, corpus.folder, self._floors[0], self._extent.limit)
        return second.Rescans(self._watch, corpus, self._ours, self._peers, caches,
                              self._extent.limit, self._work / "kept-home")

    def _measure_rescans(self, rescans):
        """Measures first and second scans."""
        self._say("second: comparing what is found")
        rescans.check()
        rescans.age()
        for mode, rounds in self._setting.rounds.items():
            if rounds:
                self._say(f"second: {rounds_text(rounds)}, {mode}")
                rescans.race(mode, rounds, self._extent.budget)

    def _say(self, text):
        """Prints the progress to standard error."""
        print(f"[{time.monotonic() - self._started:4.0f} s] {text}", file=sys.stderr, flush=True)

    def _describe(self, work, root, root_of_peers):
        """Returns the data about this run for the page."""
        why_not_cold = self._why_not_cold()
        warm = self._options.rounds or self._extent.rounds
        cold = 1 if self._options.quick else min(warm, MOST_COLD_ROUNDS)
        return Setting(
            command=shlex.join(["bench/compare", *sys.argv[1:]]),
            date=datetime.now(timezone.utc).strftime("%Y-%m-%d %H:%M UTC"),
            revision=machine.revision(root),
            facts=machine.facts(work),
            idle=[machine.idle_share()],
            programs=[self._ours, *self._floors, *self._peers],
            release=root_of_peers.release(),
            versions={peer.package: root_of_peers.version(peer.package) for peer in self._peers},
            absent=[peer.name for peer in programs.PEERS
                    if peer.name not in {ready.name for ready in self._peers}],
            rounds={WARM: warm, COLD: 0 if why_not_cold else cold},
            why_not_cold=why_not_cold,
            limit=self._extent.limit,
            budget=self._extent.budget,
        )

    def _why_not_cold(self):
        """Returns why there are no cold runs; empty if there are."""
        if self._options.no_cold:
            return "none were asked for"
        if not timing.can_drop_caches():
            return f"{timing.DROP_CACHES} cannot be written here"
        return ""

    def _contest(self, kind):
        """Measures all programs on one tree."""
        scale = kind.quick_scale if self._options.quick else 1
        self._say(f"{kind.name}: making it")
        with self._maker.made(kind.name, kind.name, "--scale", str(scale)) as corpus:
            caches = Caches(self._watch, corpus.folder, self._floors[0], self._extent.limit)
            contest = Contest(self._watch, corpus, self._setting.programs, caches,
                              self._extent.limit)
            self._say(f"{kind.name}: comparing what is found")
            contest.check()
            for mode, rounds in self._setting.rounds.items():
                if rounds:
                    self._say(f"{kind.name}: {rounds_text(rounds)}, {mode}")
                    contest.race(mode, rounds, self._extent.budget)
            self._say(f"{kind.name}: removing it")
        return contest

    def _growth(self, plan):
        """Measures one series."""
        counts = plan.quick_counts if self._options.quick else plan.counts
        floor = self._floor_walk if plan.kind == "walk" else self._floors[0]
        steps = []
        for count in counts:
            self._say(f"growth: {plan.kind}, {count:,} files")
            options = ("--files", str(count)) + plan.options
            with self._maker.made(f"growth-{plan.kind}-{count}", plan.kind, *options) as corpus:
                steps.append(growth.measure_step(corpus, self._watch, self._ours, floor,
                                                 self._extent.growth_rounds, self._extent.limit))
        return plan, steps

    def _millions(self):
        """Measures trees of up to ten million files, both on the disk at once."""
        plan = growth.MILLIONS
        counts = plan.quick_counts if self._options.quick else plan.counts
        with disk_image.mounted(self._work, sum(counts)) as disk:
            trees = []
            for count in counts:
                self._say(f"{MILLIONS}: making {count:,} files")
                trees.append(corpora.write(self._make_corpus, disk / str(count), plan.kind,
                                           "--files", str(count), *plan.options))
            self._say(f"{MILLIONS}: {rounds_text(self._extent.growth_rounds)}")
            return plan, growth.measure_in_turn(trees, self._watch, self._ours, self._floor_walk,
                                                self._extent.growth_rounds, MILLIONS_LIMIT)
