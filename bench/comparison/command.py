"""What the commands of bench/ share: their options, the build, the work folder, and their ends."""

import argparse
import os
import shlex
import signal
import subprocess
import sys
import tempfile
from contextlib import contextmanager
from pathlib import Path

from . import corpora
from .contest import Refusal

ROOT = Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build"
RELEASE = BUILD / "release"


def run(name, measure, publish):
    """Calls `measure`, which returns a page, and `publish` with that page. Returns the exit status."""
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))  # so that the trees are removed
    try:
        page = measure()
    except Refusal as refusal:
        return failure(name, refusal)
    except subprocess.CalledProcessError as error:
        return failure(name, f"{shlex.join(map(str, error.cmd))} failed")
    except KeyboardInterrupt:
        return 130
    publish(page)
    return 0


def failure(name, reason):
    """Reports why there is no page. Returns the exit status."""
    print(f"{name}: {reason}", file=sys.stderr)
    return 1


def add_common_options(add, helpers):
    """The options that all commands have."""
    add("--work", type=Path, metavar="DIR",
        help="where the trees go (default: TMPDIR, or /var/tmp)")
    add("--tarvin", type=Path, metavar="PATH",
        help="the program to measure (default: that of the release build)")
    add("--helpers", type=Path, metavar="DIR",
        help=f"the folder of {', '.join(helpers)}; nothing is built if --tarvin is given as well")


def choice_of(known):
    """A parser of several of the known names."""
    def parse(text):
        """The names that were asked for."""
        wanted = text.split(",")
        if unknown := [name for name in wanted if name not in known]:
            raise argparse.ArgumentTypeError(f"unknown: {', '.join(unknown)}")
        return wanted

    return parse


def positive(text):
    """A whole number above 0."""
    if not text.isdecimal() or int(text) == 0:
        raise argparse.ArgumentTypeError("a whole number above 0 is wanted")
    return int(text)


def prepare(options, programs):
    """Builds what is not given. `programs` are paths below the folder of the helper programs, which is
    returned."""
    if not (options.tarvin and options.helpers):
        subprocess.run(["cmake", "--preset", "release"], cwd=ROOT, check=True)
        build = ["cmake", "--build", "--preset", "release", "--target", "tarvin"]
        subprocess.run(build + [Path(name).name for name in programs], cwd=ROOT, check=True)
    options.tarvin = (options.tarvin or RELEASE / "src" / "cli" / "tarvin").resolve()
    helpers = (options.helpers or RELEASE / "bench").resolve()
    for program in (options.tarvin, *(helpers / name for name in programs)):
        if not os.access(program, os.X_OK):
            raise Refusal(f"{program} is not there")
    return helpers


@contextmanager
def work_folder(base, keep=False):
    """A new folder below `base`, removed at the end unless it is to be kept."""
    base = base or Path(os.environ.get("TMPDIR") or "/var/tmp")
    base.mkdir(parents=True, exist_ok=True)
    work = Path(tempfile.mkdtemp(prefix="tarvin-bench-", dir=base.resolve()))
    try:
        yield work
    finally:
        if keep:
            print(f"Kept: {work}", file=sys.stderr)
        else:
            corpora.remove(work)
