"""Numbers beside those of a peer: medians, ratios, verdicts, the table."""

import statistics
from dataclasses import dataclass

FORMATS = {
    "s": lambda value: f"{value:.3f} s",
    "ms": lambda value: f"{value * 1000:.1f} ms",
    "MB": lambda value: f"{value:.1f} MB",
    "times": lambda value: f"{value:.0f}",
}


@dataclass(frozen=True)
class Comparison:
    """What was measured, round by round, beside the same of a peer. The peer may be a fixed measure
    (a frame, a budget), the same in every round."""

    work: str
    place: str
    ours: list
    peers: list
    peer: str
    at_most: float | None = None  # the bound of the ratio; None for what is only printed
    unit: str = "s"

    @property
    def own(self):
        return statistics.median(self.ours)

    @property
    def other(self):
        return statistics.median(self.peers)

    @property
    def ratio(self):
        return divide(self.own, self.other)

    @property
    def spread(self):
        """The lowest and the highest ratio of a pair of rounds: how far the comparison can be trusted."""
        pairs = [divide(own, other) for own, other in zip(self.ours, self.peers)]
        return min(pairs), max(pairs)

    @property
    def is_held(self):
        # What is shown as the bound itself holds it.
        return self.at_most is None or round(self.ratio, 2) <= self.at_most


def divide(own, other):
    """Nothing beside nothing is no more than it: the bound of what may not be at all."""
    if own == 0:
        return 0.0
    return own / other if other else float("inf")


def fixed(limit, ours):
    """A fixed measure as the peer in every round."""
    return [limit] * len(ours)


HEADER = (f"{'work':<46}{'place':<8}{'this':>11}{'against':>11}{'ratio':>8}{'lowest':>8}{'highest':>8}"
          f"{'at most':>9}  against what")


def line(comparison):
    shown = FORMATS[comparison.unit]
    lowest, highest = comparison.spread
    bound = "" if comparison.at_most is None else f"{comparison.at_most:.2f}"
    verdict = "" if comparison.is_held else "  MISSED"
    return (f"{comparison.work:<46}{comparison.place:<8}{shown(comparison.own):>11}{shown(comparison.other):>11}"
            f"{comparison.ratio:>8.2f}{lowest:>8.2f}{highest:>8.2f}{bound:>9}  {comparison.peer}{verdict}")


def exit_code(comparisons, is_quick):
    """1 where a bound is missed; a quick run is too small to judge."""
    return 1 if not is_quick and not all(comparison.is_held for comparison in comparisons) else 0
