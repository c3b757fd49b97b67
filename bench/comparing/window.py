"""The window: its start, its memory, its rest, and its main thread while it scans."""

import sys
import time
from pathlib import Path

from comparing.comparisons import Comparison, fixed
from comparing.trees import make_applications
from comparing.walks import FRAME

SETTLING_SECONDS = 3
START_SECONDS, START_MEGABYTES = 0.3, 90
OPENING_SECONDS = 0.1


def start(bench):
    """The program in a home of its own, until its first window is painted."""
    runs = []
    for _ in range(max(bench.rounds, 5)):
        home = bench.place.fresh("home")
        runs.append(bench.measure("start", time.monotonic_ns(), home=home))
    bench.place.drop("home")
    walls, memory = [run["wall"] for run in runs], [run["resident"] / 1000 for run in runs]
    yield Comparison("start to first painted window", "window", walls, fixed(START_SECONDS, walls), "300 ms", 1.0, "ms")
    yield Comparison("memory then", "window", memory, fixed(START_MEGABYTES, memory), "90 MB", 1.0, "MB")


def memory(bench):
    """Every screen visited twice, with its scans, on the machine of a person of some years of use."""
    machine = bench.place.fresh("machine")
    bench.measure("lay", machine)
    run = bench.measure("visit", machine)
    bench.place.drop("machine")
    first, second = [run["resident1"] / 1000], [run["resident2"] / 1000]
    yield Comparison("memory, every screen visited twice", "window", second, [START_MEGABYTES], "90 MB", 1.0, "MB")
    yield Comparison("the same, beside visited once", "window", second, first, "visited once", 1.05, "MB")


def stalls(bench):
    """The main thread while every screen scans a large machine."""
    machine = bench.place.fresh("machine")
    home = machine / "Users" / "mira"
    make_applications(machine, bench.sizes.applications, bench.measure.beside("keelbright-slow-tool"))
    places = {bench.place.small(): home / "Library" / "Caches", bench.place.loose(): home / "Downloads",
              bench.place.deep(): home / "Documents"}
    for tree, place in places.items():
        place.parent.mkdir(parents=True, exist_ok=True)
        tree.rename(place)
    try:
        run = bench.measure("visit", machine)
    finally:
        for tree, place in places.items():
            place.rename(tree)
    bench.place.drop("machine")
    for key in sorted(run):
        kind, _, screen = key.partition(":")
        if kind in ("stall", "work"):
            # A screen opens within a tenth of a second; what is asked of an open one costs no frame.
            limit, named = (FRAME, "one frame") if ": " in screen else (OPENING_SECONDS, "100 ms")
            what = "longest stall" if kind == "stall" else "own work of it"
            yield Comparison(f"{what}, {screen}", bench.place.name, [run[key]], [limit], named, 1.0, "ms")


def rest(bench):
    """How often any thread wakes within ten seconds in which nothing happens: the program as it starts,
    and every screen after its scans, each in a process of its own."""
    seconds = 1 if bench.is_quick else 10
    machine = bench.place.fresh("machine")
    bench.measure("lay", machine)
    processes = {}
    try:
        application = bench.measure.beside("keelbright")
        processes["as started"] = bench.measure.start(application, home=bench.place.fresh("home"))
        for screen in bench.measure.lines("screens"):
            processes[screen] = bench.measure.start(bench.measure.program, "rest", machine, screen)
        for screen, process in list(processes.items())[1:]:
            if not any(line.strip() == "at rest" for line in process.stdout):
                sys.exit(f"the window at {screen} ended before it came to rest")
        time.sleep(SETTLING_SECONDS)
        before = {screen: switches(process.pid) for screen, process in processes.items()}
        time.sleep(seconds)
        counts = {screen: wakeups(before[screen], switches(process.pid)) for screen, process in processes.items()}
    finally:
        for process in processes.values():
            process.terminate()
            process.wait()
        bench.place.drop("home", "machine")
    for screen, count in counts.items():
        yield Comparison(f"wake-ups at rest in {seconds} s, {screen}", "window", [count], [0], "none", 1.0, "times")


def switches(process):
    """How often each thread of a process has gone to sleep so far."""
    found = {}
    for status in Path(f"/proc/{process}/task").glob("*/status"):
        for line in status.read_text(encoding="utf-8").splitlines():
            if line.startswith("voluntary_ctxt_switches:"):
                found[status.parent.name] = int(line.split()[1])
    return found


def wakeups(before, after):
    """A thread that has come or gone since has been awake too."""
    return (sum(after[thread] - before[thread] for thread in after.keys() & before.keys())
            + len(after.keys() ^ before.keys()))
