"""The other programs: those of the newest stable Debian, whatever this system is.

They are installed into a folder by debootstrap, and each is started by that folder's own loader with
that folder's libraries, so that nothing of this system has to be as new. The folder is kept.
"""

import os
import re
import shutil
import subprocess
import time
from dataclasses import replace
from pathlib import Path

SUITE = "stable"
FRESH = 14 * 24 * 3600  # seconds after which the folder is made anew: there may be newer versions
DONE = "complete"  # a file in it, written last


class PeerRoot:
    """A folder with the packages of `peers`."""

    def __init__(self, folder, peers):
        self._folder = Path(folder)
        self._packages = sorted({peer.package for peer in peers})

    def ready(self):
        """Makes the folder, unless it is there and new. Returns whether it can be used."""
        if not self._is_fresh():
            make(self._folder, self._packages)
        return self._is_fresh()

    def release(self):
        """The name of the release."""
        return "Debian " + self._text("etc/debian_version")

    def version(self, package):
        """The version of a package."""
        done = subprocess.run(
            ["dpkg-query", f"--admindir={self._folder / 'var/lib/dpkg'}", "-W", "-f", "${Version}",
             package], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
        return done.stdout if done.returncode == 0 else "unknown"

    def started(self, peer):
        """The peer, started from the folder; None if it is not there."""
        program = self._folder / "usr/bin" / peer.command[0]
        if not program.exists():
            return None
        loader = self._loader(program)
        # The libraries are in the same folder as the loader.
        starter = (str(loader), "--library-path", str(loader.parent), str(program))
        return replace(peer, starter=starter)

    def _is_fresh(self):
        """Whether the folder is complete, has all packages, and is new enough."""
        done = self._folder / DONE
        if not done.exists() or done.read_text(encoding="utf-8").split() != self._packages:
            return False
        return time.time() - done.stat().st_mtime < FRESH

    def _text(self, name):
        """The text of a small file."""
        return (self._folder / name).read_text(encoding="utf-8").strip()

    def _loader(self, program):
        """The loader that the program names, in the folder."""
        headers = subprocess.run(["readelf", "--program-headers", "--wide", str(program)],
                                 stdout=subprocess.PIPE, text=True, check=True).stdout
        named = re.search(r"interpreter: /(.*)\]", headers).group(1)
        return (self._folder / named).resolve()


def make(folder, packages):
    """Makes the folder. Prints why if it fails."""
    as_root = [] if os.geteuid() == 0 else ["sudo"]
    if not shutil.which("debootstrap"):
        install = ["apt-get", "install", "-y", "--no-install-recommends", "debootstrap"]
        subprocess.run(as_root + install, check=False)
    print(f"Installing {', '.join(packages)} of Debian {SUITE} into {folder}", flush=True)
    subprocess.run(as_root + ["rm", "-rf", "--one-file-system", "--", str(folder)], check=True)
    folder.parent.mkdir(parents=True, exist_ok=True)
    done = subprocess.run(
        as_root + ["debootstrap", "--variant=minbase", "--include=" + ",".join(packages), SUITE,
                   str(folder)], stdout=subprocess.DEVNULL, check=False)
    if done.returncode == 0:
        text = "\n".join(packages) + "\n"
        subprocess.run(as_root + ["tee", str(folder / DONE)], input=text, text=True,
                       stdout=subprocess.DEVNULL, check=True)
