"""The machine and its programs, for the report."""

import os
import platform
import shutil
import subprocess
import time
from pathlib import Path

IDLE_SAMPLE = 2.0  # seconds
QUIET = 0.9  # share of idle CPU time below which other processes disturb the figures


def facts(work):
    """Returns pairs of label and value for the report. `work` is a folder on the measured disk."""
    return [
        ("Processor", f"{cpu_model()}, {os.cpu_count()} cores"),
        ("Memory", f"{memory_gib():.1f} GiB"),
        ("System", f"{distribution()}, kernel {platform.release()}"),
        ("File system", file_system(work)),
        ("Device says it rotates", rotational(work)),
    ]


def value_in(file, key, separator):
    """The value behind the first `key` of a file of keys and values; "unknown" if there is none."""
    try:
        lines = Path(file).read_text(encoding="utf-8").splitlines()
    except OSError:
        return "unknown"
    for line in lines:
        name, found, value = line.partition(separator)
        if found and name.strip() == key:
            return value.strip().strip('"')
    return "unknown"


def cpu_model():
    """The CPU model as the kernel reports it."""
    return value_in("/proc/cpuinfo", "model name", ":")


def distribution():
    """The name of the distribution."""
    return value_in("/etc/os-release", "PRETTY_NAME", "=")


def memory_gib():
    """Physical memory."""
    return os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") / 2**30


def idle_share():
    """Measures the share of idle CPU time for IDLE_SAMPLE seconds. The load average would still
    include the build."""
    before = processor_ticks()
    time.sleep(IDLE_SAMPLE)
    spent = [after - start for start, after in zip(before, processor_ticks())]
    return sum(spent[3:5]) / max(1, sum(spent))  # idle, and idle but waiting for a disk


def processor_ticks():
    """The CPU times of the kernel, by kind."""
    line = Path("/proc/stat").read_text(encoding="ascii").splitlines()[0]
    return [int(field) for field in line.split()[1:9]]


def device_of(folder):
    """The device number of a folder, as in /sys and /proc."""
    device = os.stat(folder).st_dev
    return f"{os.major(device)}:{os.minor(device)}"


def file_system(folder):
    """The type of the file system of a folder."""
    device = device_of(folder)
    for line in Path("/proc/self/mountinfo").read_text(encoding="utf-8").splitlines():
        mount, _, source = line.partition(" - ")
        if mount.split()[2] == device:
            return source.split()[0]
    return "unknown"


def rotational(folder):
    """Whether the device reports to be rotational; virtual disks often do, wrongly. A partition has
    no queue, so its disk is read."""
    device = Path("/sys/dev/block") / device_of(folder)
    for place in (device, device.resolve().parent):
        try:
            text = (place / "queue" / "rotational").read_text(encoding="ascii")
            return "yes" if text.strip() == "1" else "no"
        except OSError:
            continue
    return "unknown"


def revision(root):
    """The commit that was measured, and whether the tree had changes on top."""
    def git(*arguments):
        """Returns the output of git; None if it fails."""
        done = subprocess.run(["git", "-C", str(root), *arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True, check=False)
        return done.stdout.strip() if done.returncode == 0 else None

    commit = git("rev-parse", "--short", "HEAD") if shutil.which("git") else None
    if not commit:
        return "unknown"
    return commit + (" with changes" if git("status", "--porcelain") else "")
