"""An ext4 file system in a file, for more files than the disk may have inodes for."""

import os
import shutil
import subprocess
from contextlib import contextmanager
from pathlib import Path

from .contest import Refusal

SIZE = 64 * 2**30  # bytes that the file system seems to have; the file is sparse
INODE_BYTES = 256
DISK_PER_FILE = 400  # bytes of the image: inode, name, and what the folders do not fill
MEMORY_PER_FILE = 1_500  # bytes of the kernel's caches: inode, name, buffer


def why_not(work, files):
    """Why no image for so many files can be made and kept in the caches; empty if one can."""
    if os.geteuid() != 0:
        return "only root can mount an image"
    if not shutil.which("mkfs.ext4"):
        return "there is no mkfs.ext4"
    free = shutil.disk_usage(work).free
    if free < files * DISK_PER_FILE:
        return f"{work} needs {files * DISK_PER_FILE / 2**30:.0f} GiB free"
    memory = os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE")
    if memory < files * MEMORY_PER_FILE:
        return f"the kernel's caches need {files * MEMORY_PER_FILE / 2**30:.0f} GiB of memory"
    return ""


@contextmanager
def mounted(work, files):
    """The folder of a new file system for `files` files, for a `with` block. `work` is the folder of the
    image. Raises Refusal if it cannot be made."""
    if reason := why_not(work, files):
        raise Refusal(f"{files:,} files cannot be measured: {reason}")
    image = Path(work) / "image"
    folder = Path(work) / "image-mounted"
    folder.mkdir()
    with open(image, "wb") as file:
        file.truncate(SIZE)
    try:
        must("mkfs.ext4", "-q", "-m", "0", "-O", "^has_journal", "-I", INODE_BYTES,
             "-N", files + files // 10, "-E", "lazy_itable_init=1,nodiscard", image)
        must("mount", "-o", "loop,noatime", image, folder)
        try:
            yield folder
        finally:
            must("umount", folder)
    finally:
        image.unlink()
        folder.rmdir()


def must(*command):
    """Runs a command. Raises Refusal with its message if it fails."""
    done = subprocess.run(list(map(str, command)), stderr=subprocess.PIPE, text=True, check=False)
    if done.returncode != 0:
        raise Refusal(done.stderr.strip() or f"{command[0]} failed")
