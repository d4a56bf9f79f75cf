"""The goals, and whether the measurements meet them."""

from dataclasses import dataclass

from .contest import COLD, WARM
from .second import FIRST, SECOND

# Most time of tarvin divided by that of the fastest other program, by tree.
MOST_AGAINST_PEER = {
    WARM: {"small": 0.33, "onesize": 0.33, "late": 0.33, "photos": 0.33, "walk": 0.67},
    COLD: {"small": 0.33, "onesize": 0.33, "photos": 0.6, "walk": 0.6},
}
# Most time of tarvin divided by that of the faster read floor, with a warm cache.
MOST_AGAINST_FLOOR = {"walk": 1.2}
MOST_AGAINST_FLOOR_ELSEWHERE = 1.0
# Most time of a second scan of unchanged files, with a cold cache, divided by that of the first, and by
# that of the second of a program with a cache.
MOST_OF_FIRST = 0.1
MOST_OF_CACHED = 0.5
MEMORY_FIXED = 16 * 2**20  # of the program itself


@dataclass(frozen=True)
class Verdict:
    """One goal and its verdict."""

    goal: str
    measured: str
    reached: bool


@dataclass(frozen=True)
class Ratio:
    """The time of tarvin divided by another program's."""

    name: str
    value: float


def fastest_peer(contest, mode):
    """tarvin against the fastest other program with the right sets; None if there is none."""
    timed = [entry for entry in contest.entries
             if entry.program.is_peer and entry.runs[mode] and not entry.is_out]
    if not timed or not contest.ours.runs[mode]:
        return None
    return against(contest, min(timed, key=lambda entry: entry.wall(mode).median), mode)


def floors(contest, mode):
    """tarvin against each read floor."""
    return [against(contest, entry, mode) for entry in contest.entries[1:]
            if not entry.program.is_peer and entry.runs[mode]]


def against(contest, entry, mode):
    """tarvin against one entry, by medians."""
    value = contest.ours.wall(mode).median / entry.wall(mode).median
    return Ratio(entry.program.name, value)


def judge(contests, series, rescans):
    """All verdicts. `contests` by name of tree, `series` pairs of Series and steps, `rescans` may be
    None."""
    verdicts = []
    for name, contest in contests.items():
        verdicts.append(same_sets(name, contest))
        for mode in (WARM, COLD):
            verdicts += speed(name, contest, mode)
    for plan, steps in series:
        if len(steps) > 1:
            verdicts.append(growth(plan, steps))
    verdicts += [memory(plan, steps) for plan, steps in series if plan.most_bytes]
    return verdicts + (second(rescans) if rescans else [])


def same_sets(name, contest):
    """The programs that compare byte for byte found the same sets; otherwise Contest refuses."""
    judges = ", ".join(contest.judged_by)
    return Verdict(f"{name}: the sets of a byte-exact finder",
                   f"{contest.sets:,} sets, the same as {judges}", True)


def speed(name, contest, mode):
    """Against the fastest peer and the faster read floor, if the tree has a goal."""
    verdicts = []
    peer = fastest_peer(contest, mode)
    floor = max(floors(contest, mode), key=lambda ratio: ratio.value, default=None)
    if peer and name in MOST_AGAINST_PEER[mode]:
        verdicts.append(against_peer(f"{name}, {mode}", MOST_AGAINST_PEER[mode][name], peer,
                                     floor if mode == WARM else None))
    if mode == WARM and floor:
        most = MOST_AGAINST_FLOOR.get(name, MOST_AGAINST_FLOOR_ELSEWHERE)
        verdicts.append(Verdict(f"{name}, {mode}: at most {most} of the faster floor",
                                f"{floor.value:.2f} of {floor.name}", floor.value <= most))
    return verdicts


def against_peer(title, most, peer, floor):
    """Against the fastest peer. Nothing that reads every candidate beats the floor, so where the floor
    alone takes more than the share that is wanted, the share of the floor is."""
    measured = f"{peer.value:.2f} of {peer.name}"
    if floor and peer.value / floor.value > most:
        most = peer.value / floor.value
        measured += f"; the floor is {most:.2f} of it"
    return Verdict(f"{title}: at most {most:.2f} of the fastest other program", measured,
                   peer.value <= most)


def growth(plan, steps):
    """The time for each file must not grow with the number of files."""
    first, last = steps[0], steps[-1]
    ratio = last.time_per_file / first.time_per_file
    floor = last.floor_per_file / first.floor_per_file
    return Verdict(f"growth, {plan.kind}: time for one file at {last.files:,} files at most "
                   f"{plan.most_growth} times that at {first.files:,}",
                   f"{ratio:.2f} times (the floor: {floor:.2f} times)",
                   ratio <= plan.most_growth)


def memory(plan, steps):
    """The peak at the largest number of files."""
    last = steps[-1]
    allowed = last.files * plan.most_bytes + MEMORY_FIXED
    return Verdict(f"memory, {plan.kind}: at {last.files:,} files at most {plan.most_bytes} bytes "
                   f"a file and {MEMORY_FIXED // 2**20} MiB ({allowed / 2**20:.1f} MiB)",
                   f"{last.peak / 2**20:.1f} MiB", last.peak <= allowed)


def second(rescans):
    """The second scan of unchanged files, with a cold cache."""
    judges = ", ".join(rescans.judged_by)
    verdicts = [Verdict("second: the sets of a byte-exact finder in both scans",
                        f"{rescans.sets:,} sets, the same as {judges}", True)]
    if not rescans.rounds[COLD]:
        return verdicts
    ours = rescans.ours.wall(COLD, SECOND).median
    ratio = ours / rescans.ours.wall(COLD, FIRST).median
    verdicts.append(Verdict(f"second, cold: at most {MOST_OF_FIRST} of the first scan",
                            f"{ratio:.2f} of it", ratio <= MOST_OF_FIRST))
    for result in rescans.results:
        wall = result.wall(COLD, SECOND)
        if result.program.is_peer and wall:
            ratio = ours / wall.median
            verdicts.append(Verdict(
                f"second, cold: at most {MOST_OF_CACHED} of another program with its cache",
                f"{ratio:.2f} of {result.program.name}", ratio <= MOST_OF_CACHED))
    return verdicts
