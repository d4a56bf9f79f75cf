"""One run of bench/devices, from the simulated devices to the page."""

import shlex
import shutil
import sys
import tempfile
import time
from dataclasses import dataclass
from datetime import datetime, timezone
from pathlib import Path

from . import device_report, devices, machine, programs, timing
from .contest import COLD, Contest, Refusal
from .peer_root import PeerRoot
from .report import rounds_text

DISK = "disk"
NETWORK = "network"
HELPERS = ("make_corpus", "measure")
SIMULATORS = ("simulated_disk", "simulated_network")
DISK_BYTES = 4 * 2**30  # the image is sparse
PATIENCE = 40  # a peer slower than tarvin by this factor is not measured further


@dataclass(frozen=True)
class Case:
    """One tree on one device."""

    device: str
    kind: str
    files: int
    quick_files: int
    rounds: int
    delay: int = 0  # milliseconds a call of a network

    @property
    def name(self):
        """For the page."""
        device = f"{self.device} of {self.delay} ms" if self.delay else self.device
        return f"{device}, {self.kind}"


CASES = (
    Case(DISK, "small", 3000, 400, 3),
    Case(DISK, "fewsizes", 3000, 400, 3),
    Case(DISK, "photos", 400, 60, 3),
    Case(DISK, "late", 24, 8, 3),
    Case(NETWORK, "small", 1500, 150, 1, delay=5),
    Case(NETWORK, "walk", 1500, 150, 1, delay=5),
    Case(NETWORK, "small", 1500, 150, 1, delay=1),
    Case(NETWORK, "small", 300, 60, 1, delay=20),  # others take a hundred times as long
)


@dataclass
class Setting:
    """The data about the run for the page."""

    command: str
    date: str
    revision: str
    facts: list
    idle: list
    programs: list
    release: str
    versions: dict
    limit: float


class DeviceSession:
    """Measures all programs on all devices. `helpers` is the folder of the helper programs."""

    def __init__(self, options, helpers, work, root):
        if reason := devices.can_be_made():
            raise Refusal(reason)
        self._started = time.monotonic()
        self._options = options
        self._helpers = Path(helpers)
        self._work = Path(work)
        self._limit = 60.0 if options.quick else 400.0
        peers = PeerRoot(root / "build" / "peers", programs.PEERS)
        if not peers.ready():
            raise Refusal("the other programs could not be installed")
        started = [peer for peer in map(peers.started, programs.PEERS) if peer]
        self._watch = timing.StopWatch(self._helpers / "measure", self._work)
        self._setting = Setting(
            command=shlex.join(["bench/devices", *sys.argv[1:]]),
            date=datetime.now(timezone.utc).strftime("%Y-%m-%d %H:%M UTC"),
            revision=machine.revision(root),
            facts=machine.facts(self._work),
            idle=[machine.idle_share()],
            programs=[programs.tarvin(options.tarvin), *started],
            release=peers.release(),
            versions={peer.package: peers.version(peer.package) for peer in started},
            limit=self._limit,
        )

    def page(self):
        """Runs the chosen measurements. Returns the page."""
        results = [self._measure(case) for case in CASES if case.device in self._options.only]
        self._setting.idle.append(machine.idle_share())
        return device_report.page(self._setting, results)

    def _measure(self, case):
        """One tree on one device: the case, its contest, and what tarvin's runs made it do."""
        place = Path(tempfile.mkdtemp(prefix="device-", dir=self._work))
        device = self._device(case, place)
        files = case.quick_files if self._options.quick else case.files
        rounds = 1 if self._options.quick else self._options.rounds or case.rounds
        try:
            self._say(f"{case.name}: making it")
            corpus = device.fill(self._helpers / "make_corpus", case.kind, "--files", str(files))
            contest = Contest(self._watch, corpus, self._setting.programs, device, self._limit,
                              PATIENCE)
            self._say(f"{case.name}: {rounds_text(rounds)}")
            contest.check(COLD, counts=True)
            if rounds > 1:
                contest.race(COLD, rounds - 1, self._limit)
            device.prepare(COLD)
            self._watch.run(contest.ours.program, corpus.folder, self._limit)
        finally:
            device.end()
            shutil.rmtree(place)
        return device_report.Result(case, contest, device.counts)

    def _device(self, case, place):
        """The device of a case."""
        simulators = self._helpers / "slow_devices"
        if case.device == DISK:
            return devices.SlowDisk(simulators / "simulated_disk", place, DISK_BYTES)
        return devices.SlowNetwork(simulators / "simulated_network", place, case.delay)

    def _say(self, text):
        """Prints the progress to standard error."""
        print(f"[{time.monotonic() - self._started:4.0f} s] {text}", file=sys.stderr, flush=True)
