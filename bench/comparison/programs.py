"""The programs that are compared: how each is called, and how its list is read.

Every call only looks for files of equal content below one folder and lists what it found. Nothing
is deleted, linked or left behind. Where a program can be told to compare less strictly than byte
for byte, its default stands: a default is what a person gets.
"""

import json
import re
from dataclasses import dataclass
from typing import Callable

# One set of equal files is a frozenset of paths; a result is the set of those.
Groups = frozenset

FOLDER = "{folder}"
LISTING = "{listing}"


@dataclass(frozen=True)
class Program:
    """One measured program."""

    name: str
    command: tuple  # FOLDER and LISTING stand for the folder and the file for the list
    parse: Callable | None = None  # text of the list to Groups; None for the read floor
    package: str = ""  # of the distribution; empty for our own programs
    judges: bool = False  # confirms matches byte for byte: our sets must equal its sets
    how: str = ""  # its comparison method in one line, for the report
    starter: tuple = ()  # what starts the program, instead of the first word of the command

    @property
    def is_peer(self):
        """Whether it is not one of our own programs."""
        return bool(self.package)

    def arguments(self, folder, listing):
        """The command line for one folder."""
        places = {FOLDER: str(folder), LISTING: str(listing)}
        words = (*self.starter, *self.command[1:]) if self.starter else self.command
        return [places.get(word, word) for word in words]

    @property
    def writes_listing(self):
        """Whether it writes its list to a given file instead of standard output."""
        return LISTING in self.command

    @property
    def shown_command(self):
        """The command line for the report."""
        return " ".join(self.command).replace(FOLDER, "FOLDER").replace(LISTING, "LIST")


def as_groups(lists):
    """Makes Groups of lists of paths; lists of one path are dropped."""
    return Groups(frozenset(paths) for paths in lists if len(paths) > 1)


def parse_tarvin(text):
    """Reads our JSON."""
    lists = []
    for category in json.loads(text)["categories"]:
        for extension in category["extensions"]:
            for found in extension["sets"]:
                lists.append([file["filePath"] for file in found["files"]])
    return as_groups(lists)


def collected_by_tarvin(text):
    """Returns the number of files in our JSON."""
    return sum(json.loads(text)["collected"].values())


def parse_blocks(text):
    """Reads lists of paths, separated by lines that are not absolute paths."""
    lists = [[]]
    for line in text.splitlines():
        if line.startswith("/"):
            lists[-1].append(line)
        else:
            lists.append([])
    return as_groups(lists)


def parse_rdfind(text):
    """Reads rdfind's results file: the second column is the set's number, negative for copies."""
    by_number = {}
    for line in text.splitlines():
        if line.startswith("DUPTYPE_"):
            columns = line.split(" ", 7)
            by_number.setdefault(abs(int(columns[1])), []).append(columns[7])
    return as_groups(by_number.values())


def parse_rmlint(text):
    """Reads rmlint's JSON, in which each original comes before its copies."""
    lists = [[]]
    for entry in json.loads(text):
        if entry.get("type") == "duplicate_file":
            if entry["is_original"]:
                lists.append([])
            lists[-1].append(entry["path"])
    return as_groups(lists)


def parse_czkawka(text):
    """Reads czkawka's JSON: lists of files by size."""
    return as_groups([file["path"] for file in found]
                     for same_size in json.loads(text).values() for found in same_size)


HARDLINK_LINE = re.compile(r"^\[DryRun\] Linking (/.*) to (/.*) \([^()]*\)$")


def parse_hardlink(text):
    """Merges the pairs that hardlink would link."""
    member_of = {}
    for line in text.splitlines():
        if match := HARDLINK_LINE.match(line):
            first, second = (member_of.get(path, {path}) for path in match.groups())
            joined = first | second
            member_of.update((path, joined) for path in joined)
    return as_groups({frozenset(paths) for paths in member_of.values()})


PEERS = (
    Program(
        name="czkawka",
        package="czkawka-cli",
        # -m includes files below 8 KiB, which its default leaves out. -C moves its list out of the
        # report for people; its caches are in the home folder, which is empty before each run.
        command=("czkawka_cli", "dup", "-m", "1", "-C", LISTING, "-d", FOLDER),
        parse=parse_czkawka,
        how="BLAKE3, not confirmed",
    ),
    Program(
        name="jdupes",
        package="jdupes",
        # -r includes subfolders, -q shows no progress. Empty files are excluded by default, and
        # matches are confirmed byte for byte unless -Q is given.
        command=("jdupes", "-r", "-q", FOLDER),
        parse=parse_blocks,
        judges=True,
        how="hashes, then confirms byte for byte",
    ),
    Program(
        name="fdupes",
        package="fdupes",
        # -r and -q as above. -n excludes empty files, as the others do; it has no option to
        # disable the byte-for-byte confirmation.
        command=("fdupes", "-r", "-q", "-n", FOLDER),
        parse=parse_blocks,
        judges=True,
        how="MD5, then confirms byte for byte",
    ),
    Program(
        name="rdfind",
        package="rdfind",
        # -dryrun changes nothing. Its list is only written to the results file, which -outputname
        # moves out of the current folder. Empty files are excluded by default.
        command=("rdfind", "-dryrun", "true", "-outputname", LISTING, FOLDER),
        parse=parse_rdfind,
        how="SHA-1, not confirmed",
    ),
    Program(
        name="rmlint",
        package="rmlint",
        # -T df looks for duplicate files only, not for other lint. One -o replaces the default
        # outputs, so that no script is left behind; JSON, because we write JSON too. Empty files
        # stay out by default.
        command=("rmlint", "-T", "df", "-o", "json:stdout", FOLDER),
        parse=parse_rmlint,
        how="BLAKE2b, not confirmed",
    ),
    Program(
        name="rmlint -p",
        package="rmlint",
        # -p is its byte-by-byte comparison without any hashing; the rest as above.
        command=("rmlint", "-p", "-T", "df", "-o", "json:stdout", FOLDER),
        parse=parse_rmlint,
        how="byte for byte",
    ),
    Program(
        name="duff",
        package="duff",
        # -r goes into subfolders, -z leaves empty files out. Digests decide, -t (byte by byte) is
        # not its default.
        command=("duff", "-r", "-z", FOLDER),
        parse=parse_blocks,
        how="SHA-1, not confirmed",
    ),
    Program(
        name="hardlink",
        package="util-linux",
        # -n links nothing, -c looks at contents only (not at mode, owner and time), -v lists the
        # pairs. Empty files stay out by default. Subfolders are always walked.
        command=("hardlink", "-n", "-c", "-v", FOLDER),
        parse=parse_hardlink,
        how="SHA-256 by the kernel, byte for byte where the kernel offers none",
    ),
)


def tarvin(path):
    """tarvin, without the user's exception list."""
    command = (str(path), "scan", "--format", "json", "--no-exceptions", "--progress", "never")
    return Program(
        name="tarvin",
        command=command + (FOLDER,),
        parse=parse_tarvin,
        how="byte for byte",
    )


def floor(path, threads):
    """The read floor with that many threads."""
    plural = "thread" if threads == 1 else "threads"
    return Program(
        name=f"floor, {threads} {plural}",
        command=(str(path), "--threads", str(threads), FOLDER),
        how="reads every candidate once, compares nothing",
    )


def floor_walk(path):
    """The floor that only walks the tree."""
    return Program(name="floor, walk only", command=(str(path), "--walk-only", FOLDER))
