"""Writes the measurements as a Markdown page."""

from . import goals, machine
from .contest import COLD, LEAST_LIMIT, TIMES_OURS, WARM
from .second import FIRST, SECOND
from .timing import COLD_NOTE

MISSING = "–"


def table(titles, rows):
    """A Markdown table; all columns but the first are right-aligned."""
    lines = [titles, ["---"] + ["---:"] * (len(titles) - 1), *rows]
    return ["| " + " | ".join(line) + " |" for line in lines] + [""]


def plain_table(titles, rows):
    """A Markdown table of texts."""
    lines = [titles, ["---"] * len(titles), *rows]
    return ["| " + " | ".join(line) + " |" for line in lines] + [""]


def seconds(value):
    """Seconds with their significant digits."""
    return f"{value:.3f}" if value < 10 else f"{value:.1f}"


def mib(value):
    """Bytes as MiB."""
    return f"{value / 2**20:.1f}"


def with_spread(value):
    """Median, minimum and maximum."""
    return f"{seconds(value.median)} ({seconds(value.least)}–{seconds(value.most)})"


def rounds_text(number):
    """The number of rounds."""
    return f"{number} round" if number == 1 else f"{number} rounds"


def page(setting, contests, series, rescans):
    """The whole page."""
    lines = ["# Benchmarks", "", *busy_lines(setting), *introduction(setting)]
    lines += ["## Goals", "", *goal_lines(goals.judge(contests, series, rescans))]
    lines += ["## Machine and programs", "", *setting_lines(setting)]
    if contests:
        lines += ["## Ratios", "", *ratio_lines(contests)]
    for name, contest in contests.items():
        lines += contest_lines(name, setting.texts[name], contest)
    if series:
        lines += ["## Growth", "", *growth_lines(series)]
    if rescans:
        lines += ["## Remembered scans", "", *rescan_lines(rescans)]
    return "\n".join(lines).rstrip() + "\n"


def introduction(setting):
    """How the figures were measured."""
    return [
        f"Measured by `{setting.command}` on {setting.date}, revision {setting.revision}. All "
        "figures come from this run, except those from the section on the window on, which the "
        "script keeps when it writes this page.",
        "",
        "Each tree is generated from a fixed seed. First, every program runs once without timing, "
        "and its sets are compared: a tree is timed only if our sets are equal to those of the "
        "programs that compare byte by byte. Then each round runs every program once, starting "
        f"with the next program each time: {rounds_text(setting.rounds[WARM])} with a warm cache "
        f"(the read floor has just read the tree){cold_text(setting)}. After "
        f"{setting.budget:.0f} s of warm or of cold rounds on a tree, no further round begins. A "
        f"program that takes more than {setting.limit:.0f} s, or more than {TIMES_OURS} times our "
        f"time and {LEAST_LIMIT:.0f} s, is not run again on that tree.",
        "",
        "Times are wall-clock seconds: median (minimum–maximum). Processor seconds are the median "
        "of user plus system time. Memory is the maximum resident set size of all timed runs.",
        "",
        "The read floor is a program that walks the tree and reads every file whose size occurs "
        "more than once from start to end, once, without comparing. A finder that stops reading "
        "files that differ early can be faster.",
        "",
    ]


def busy_lines(setting):
    """A warning, if the machine was busy."""
    if min(setting.idle) >= machine.QUIET:
        return []
    return ["**The machine was busy with other processes: the times are too long, and the ratios "
            "are unreliable.**", ""]


def cold_text(setting):
    """The text about cold runs."""
    if setting.rounds[COLD]:
        return f", and {rounds_text(setting.rounds[COLD])} {COLD_NOTE} (cold)"
    return f"; no cold runs, because {setting.why_not_cold}"


def goal_lines(verdicts):
    """The verdicts, and a line with their sum."""
    if not verdicts:
        return ["None of the goals was measured in this run.", ""]
    missed = sum(not verdict.reached for verdict in verdicts)
    total = f"{len(verdicts) - missed} of {len(verdicts)} reached."
    rows = [[verdict.goal, verdict.measured, "reached" if verdict.reached else "**not reached**"]
            for verdict in verdicts]
    return [total, "", *plain_table(["Goal", "Measured", "Verdict"], rows)]


def setting_lines(setting):
    """The machine, and the programs with their versions and options."""
    rows = [[f"`{program.shown_command}`" if program.is_peer else program.name,
             setting.versions.get(program.package, MISSING), program.how]
            for program in setting.programs]
    idle = ", ".join(f"{share:.0%}" for share in setting.idle)
    facts = [*setting.facts, ("Processors idle before the run, and after it", idle)]
    lines = plain_table(["Machine", ""], [list(fact) for fact in facts])
    lines += [f"The other programs are those of {setting.release}, run with its libraries. Their "
              "caches are empty before each run, except before a second scan.", ""]
    lines += plain_table(["Program", "Package version", "How it decides"], rows)
    if setting.absent:
        lines += [f"Not in {setting.release}: {', '.join(setting.absent)}.", ""]
    return lines


def ratio_lines(contests):
    """The time of tarvin divided by the others'."""
    rows = []
    for name, contest in contests.items():
        for mode in (WARM, COLD):
            if contest.ours.runs[mode]:
                peer = goals.fastest_peer(contest, mode)
                rows.append([f"{name}, {mode}",
                             f"{peer.value:.2f} ({peer.name})" if peer else MISSING]
                            + [f"{floor.value:.2f}" for floor in goals.floors(contest, mode)])
    floor_names = [entry.program.name for entry in next(iter(contests.values())).entries[1:]
                   if not entry.program.is_peer]
    titles = ["Our time divided by that of", "the fastest other program"]
    return table(titles + [f"the {name}" for name in floor_names], rows)


def contest_lines(name, text, contest):
    """One tree: its description and the results of all programs."""
    corpus = contest.corpus
    lines = [
        f"## {name}",
        "",
        f"{text[0].upper()}{text[1:]}. {corpus.files:,} files in {corpus.folders:,} folders, "
        f"{corpus.bytes / 2**20:,.0f} MiB; {contest.sets:,} sets, the same as "
        f"{', '.join(contest.judged_by)}.",
        "",
    ]
    cold = bool(contest.rounds[COLD])
    lines += [f"{rounds_text(contest.rounds[WARM])} warm, {contest.rounds[COLD]} cold.", ""]
    titles = ["Program", "warm s", "warm processor s"]
    titles += ["cold s", "cold processor s"] if cold else []
    rows = [entry_row(entry, cold) for entry in contest.entries]
    return lines + table(titles + ["peak MiB"], rows)


def entry_row(entry, cold):
    """The row of one program."""
    cells = [entry.program.name]
    for mode in (WARM, COLD) if cold else (WARM,):
        cells += mode_cells(entry, mode)
    peaks = [peak for peak in map(entry.peak, (WARM, COLD)) if peak]
    return cells + [mib(max(peaks)) if peaks else MISSING]


def mode_cells(entry, mode):
    """Wall and CPU time, or why there are none."""
    if entry.trouble:
        return [entry.trouble, MISSING]
    if entry.stopped_after:
        return [f"> {entry.stopped_after:.1f}, stopped", MISSING]
    if entry.too_slow:
        return [f"{seconds(entry.too_slow)}, one run, not timed" if mode == WARM else MISSING,
                MISSING]
    return [with_spread(entry.wall(mode)), seconds(entry.cpu(mode))]


def growth_lines(series):
    """A table for each series."""
    lines = ["Warm cache; the read floor with one thread shows the share of the file system in any "
             "growth.", ""]
    for plan, steps in series:
        rows = [[f"{step.files:,}", with_spread(step.wall), f"{step.time_per_file * 1e6:.2f}",
                 f"{step.floor_per_file * 1e6:.2f}", mib(step.peak),
                 f"{step.memory_per_file:,.0f}"] for step in steps]
        titles = ["Files", "s", "µs a file", "floor, µs a file", "peak MiB", "bytes a file"]
        lines += [f"{plan.title}:", "", *table(titles, rows)]
    return lines


def rescan_lines(rescans):
    """The tree, and a table of first and second scans."""
    corpus = rescans.corpus
    lines = [
        f"The tree of \"small\" with {corpus.files:,} files in {corpus.folders:,} folders, "
        f"{corpus.bytes / 2**20:,.0f} MiB; {rescans.sets:,} sets in every scan, the same as "
        f"{', '.join(rescans.judged_by)}. The first scan begins with an empty home; the second finds "
        "nothing changed and has what the first has stored. A program that stores nothing has no "
        "second scan of its own.",
        "",
        f"{rounds_text(rescans.rounds[WARM])} warm, {rescans.rounds[COLD]} cold.",
        "",
    ]
    modes = [mode for mode in (COLD, WARM) if rescans.rounds[mode]]
    titles = ["Program"]
    for mode in modes:
        titles += [f"first, {mode}, s", f"second, {mode}, s", f"second, {mode}, processor s"]
    rows = [rescan_row(result, modes) for result in rescans.results]
    lines += table(titles + ["peak MiB"], rows)
    commands = [f"`{result.program.shown_command}`" for result in rescans.results
                if result.program.is_peer]
    return lines + [f"The other program: {command}." for command in commands]


def rescan_row(result, modes):
    """The row of one program."""
    cells = [result.program.name]
    for mode in modes:
        first, second = result.wall(mode, FIRST), result.wall(mode, SECOND)
        cells.append(result.trouble or (with_spread(first) if first else MISSING))
        cells.append(with_spread(second) if second else MISSING)
        cells.append(seconds(result.cpu(mode, SECOND)) if second else MISSING)
    return cells + [mib(result.peak) if result.peak else MISSING]
