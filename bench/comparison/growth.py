"""Time and memory of tarvin by number of files."""

from dataclasses import dataclass

from .contest import Refusal, failure_text
from .timing import Spread, spread


@dataclass(frozen=True)
class Step:
    """One number of files."""

    files: int
    wall: Spread  # of tarvin
    peak: int  # of tarvin, bytes
    floor: float  # median seconds of the read floor: the cost of the file system

    @property
    def time_per_file(self):
        """Seconds of tarvin for each file."""
        return self.wall.median / self.files

    @property
    def floor_per_file(self):
        """Seconds of the read floor for each file."""
        return self.floor / self.files

    @property
    def memory_per_file(self):
        """Peak bytes of tarvin for each file, including the program itself."""
        return self.peak / self.files


@dataclass(frozen=True)
class Series:
    """One kind of tree with increasing numbers of files."""

    title: str
    kind: str
    options: tuple  # for make_corpus
    counts: tuple
    quick_counts: tuple
    most_growth: float = 1.5  # of the time for one file, from the smallest tree to the largest
    most_bytes: int | None = None  # for one file of the largest tree


UNIQUE_SIZES = Series(
    title="Files of unique sizes (walk), nothing to read",
    kind="walk",
    options=(),
    counts=(10_000, 100_000, 300_000, 1_000_000),
    quick_counts=(10_000, 100_000),
    most_bytes=150,
)
MILLIONS = Series(
    title="Files of unique sizes (walk) on an image of ext4, both trees in turn",
    kind="walk",
    options=(),
    counts=(1_000_000, 10_000_000),
    quick_counts=(100_000, 1_000_000),
    most_growth=1.2,
    most_bytes=110,
)
ONE_CLASS = Series(
    title="Distinct files of one size (onesize), 64 KiB each, alike in their first 4 KiB",
    kind="onesize",
    options=("--copies", "0"),
    counts=(1_000, 5_000, 20_000),
    quick_counts=(1_000, 5_000),
)


def measure_step(corpus, watch, ours, floor, rounds, limit):
    """One step."""
    return measure_in_turn([corpus], watch, ours, floor, rounds, limit)[0]


def measure_in_turn(corpora, watch, ours, floor, rounds, limit):
    """A step for each tree: an untimed run of each program to warm the cache, then the timed runs in
    turn, so that a slow drift of the machine affects all trees alike."""
    runs = [{ours: [], floor: []} for _ in corpora]
    for number in range(rounds + 1):
        for corpus, by_program in zip(corpora, runs):
            for program, kept in by_program.items():
                run = watch.run(program, corpus.folder, limit)
                if run is None or run.status != 0:
                    raise Refusal(f"{program.name} failed: {failure_text(run, limit)}")
                if number > 0:
                    kept.append(run)
    return [Step(
        files=corpus.files,
        wall=spread(run.wall for run in by_program[ours]),
        peak=max(run.peak for run in by_program[ours]),
        floor=spread(run.wall for run in by_program[floor]).median,
    ) for corpus, by_program in zip(corpora, runs)]
