"""Times of several pieces of work in one run, in turns, so that all of them meet the same moods of the machine."""

import gc
import statistics
import time


def batch_median(work, seconds, most):
    """The median of warm runs, as many as fit, at least one."""
    times = []
    end = time.perf_counter() + seconds
    gc.disable()
    while not times or (len(times) < most and time.perf_counter() < end):
        start = time.perf_counter()
        work()
        times.append(time.perf_counter() - start)
    gc.enable()
    return statistics.median(times)


def in_turns(works, rounds, seconds=0.01, most=500):
    """{name: median seconds}, over rounds, of the medians within each. Everybody is first in turn, and warm."""
    names = list(works)
    for work in works.values():
        work()
    medians = {name: [] for name in names}
    for number in range(rounds):
        gc.collect()
        turn = number % len(names)
        for name in names[turn:] + names[:turn]:
            medians[name].append(batch_median(works[name], seconds, most))
    return {name: statistics.median(each) for name, each in medians.items()}
