"""The scan of applications beside the tools that it waits for."""

from comparing.comparisons import Comparison
from comparing.running import in_turn
from comparing.trees import make_applications
from comparing.walks import walls

AT_ONCE = 32


def scan(bench):
    """Each application is asked about by a tool that takes 50 ms; xargs starts the same tools, as many at a time."""
    count, machine = bench.sizes.applications, bench.place.fresh("machine")
    tool = bench.measure.beside("keelbright-slow-tool")
    make_applications(machine, count, tool)
    arguments = machine / "arguments"
    arguments.write_text("\n".join(map(str, range(count))), encoding="ascii")
    ours, tools = in_turn(bench.rounds, lambda: bench.measure("apps", machine, count),
                          lambda: bench.peer("xargs", "-a", arguments, "-P", AT_ONCE, "-n", 1, tool))
    yield Comparison(f"{count:,} applications, 50 ms for the tool of each", bench.place.name, walls(ours), walls(tools),
                     f"xargs -P {AT_ONCE} tool", 1.2)
    bench.place.drop("machine")
