"""Writes the measurements of slow devices as a Markdown page."""

from dataclasses import dataclass

from . import goals, report
from .contest import COLD, Contest

# Most time of tarvin divided by that of a peer, by device and tree.
MOST_AGAINST = {
    "disk, small": {"rdfind": 0.5},
    "disk, fewsizes": {"rdfind": 0.5},
    "disk, photos": {"rdfind": 0.5},
    "disk, late": {"rdfind": 0.8},
    "network of 5 ms, small": {"jdupes": 0.05, "czkawka": 0.15},
    "network of 5 ms, walk": {"jdupes": 0.05, "czkawka": 0.15},
}
TEXTS = {
    "small": "Small files of many kinds and of up to 16 KiB; most sizes occur more than once.",
    "fewsizes": "Small files of one kind and of six sizes from 3 to 40 kB: each has to be read.",
    "photos": "Pictures of 200 KiB to 4 MiB.",
    "late": "Files of 32 MiB in fours, of which two are equal and two differ at their ends.",
    "walk": "Files of different sizes: none has to be read.",
}
# Least rate on large files, as a share of that of the disk while it reads on.
LEAST_RATE = {"disk, late": 0.8}
DISK_RATE = 180e6  # bytes a second


@dataclass(frozen=True)
class Result:
    """One tree on one device."""

    case: object
    contest: Contest
    counts: dict  # of a run of tarvin


def page(setting, results):
    """The whole page."""
    lines = ["# Slow devices", "", *report.busy_lines(setting), *introduction(setting)]
    verdicts = [verdict for result in results for verdict in judge(result)]
    lines += ["## Goals", "", *report.goal_lines(verdicts)]
    lines += ["## Machine and programs", "", *machine_lines(setting)]
    for result in results:
        lines += result_lines(result)
    return "\n".join(lines).rstrip() + "\n"


def introduction(setting):
    """What was measured."""
    return [
        f"Measured by `{setting.command}` on {setting.date}, revision {setting.revision}. "
        "[benchmarks.md](benchmarks.md) has the same programs on the disk of the machine.",
        "",
        "The devices are simulated (`bench/slow_devices`) and wait as long as real ones. The disk "
        "has one arm and turns 7,200 times a minute: a seek takes 0.8 ms to the next track, 8.4 ms "
        "across a third of the disk and 14 ms at most, half a turn another 4.2 ms, and it reads on "
        "at 180 MB/s. Its file system is ext4. On the network each call takes 1, 5 or 20 ms, however "
        "many are under way; nothing is cached.",
        "",
        "A device is mounted anew before each run, so all runs are cold. A program that takes more "
        f"than {setting.limit:.0f} s is stopped. Times are wall-clock seconds: median "
        "(minimum–maximum).",
        "",
    ]


def machine_lines(setting):
    """The machine and the versions."""
    idle = ", ".join(f"{share:.0%}" for share in setting.idle)
    facts = [*setting.facts, ("Processors idle before the run, and after it", idle)]
    lines = report.plain_table(["Machine", ""], [list(fact) for fact in facts])
    rows = [[program.name, setting.versions[program.package]]
            for program in setting.programs if program.is_peer]
    lines += [f"The other programs are those of {setting.release}, called as in "
              "[benchmarks.md](benchmarks.md).", ""]
    return lines + report.plain_table(["Program", "Package version"], rows)


def judge(result):
    """The verdicts of one tree."""
    name = result.case.name
    ours = result.contest.ours.wall(COLD).median
    verdicts = []
    for entry in result.contest.entries[1:]:
        most = MOST_AGAINST.get(name, {}).get(entry.program.name)
        if most is not None and entry.runs[COLD] and not entry.trouble:
            share = ours / entry.wall(COLD).median
            verdicts.append(goals.Verdict(f"{name}: at most {most} of {entry.program.name}",
                                          f"{share:.2f}", share <= most))
    if name in LEAST_RATE:
        rate = result.counts["bytes"] / ours / DISK_RATE
        verdicts.append(goals.Verdict(f"{name}: at least {LEAST_RATE[name]} of the disk's rate",
                                      f"{rate:.2f}", rate >= LEAST_RATE[name]))
    return verdicts


def result_lines(result):
    """One tree on one device."""
    corpus = result.contest.corpus
    counted = ", ".join(f"{number:,} {what}" for what, number in result.counts.items())
    lines = [
        f"## {result.case.name}",
        "",
        f"{TEXTS[result.case.kind]} {corpus.files:,} files in {corpus.folders:,} folders, "
        f"{corpus.bytes / 2**20:,.0f} MiB; "
        f"{result.contest.sets:,} sets, the same as {', '.join(result.contest.judged_by)}. "
        f"A run of tarvin: {counted}. {report.rounds_text(result.contest.rounds[COLD])}.",
        "",
    ]
    ours = result.contest.ours.wall(COLD).median
    rows = []
    for entry in result.contest.entries:
        seconds = report.mode_cells(entry, COLD)[0]
        if entry.too_slow:
            seconds = f"{report.seconds(entry.too_slow)}, one run"
        known = entry.runs[COLD] and not entry.trouble
        share = f"{ours / entry.wall(COLD).median:.2f}" if known else report.MISSING
        rows.append([entry.program.name, seconds, share])
    return lines + report.table(["Program", "s", "ours / theirs"], rows)
