#!/usr/bin/env python3
"""Tables of times and ratios from what the benchmarks wrote as JSON.

usage: ratios.py FILE... [--mean ARGUMENT] [--topic TEXT]

Times are the least CPU time of all repetitions in all files, for one operation. A ratio tells how many times as long as ours the
fastest peer takes; peers with an asterisk do less than was asked, and count only where no other peer took part.
--mean takes geometric means over one argument, such as record. --topic keeps the topics that begin with a text.
"""

import argparse
import json
import math
import re
from collections import defaultdict

NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def geometric_mean(values):
    return math.exp(sum(map(math.log, values)) / len(values))


def read(paths):
    """{topic: {arguments: {contender: nanoseconds}}}, and the same of the results told."""
    times = defaultdict(lambda: defaultdict(dict))
    results = defaultdict(lambda: defaultdict(dict))
    runs = []
    for path in paths:
        with open(path, encoding="utf-8") as file:
            runs += json.load(file)["benchmarks"]
    for run in runs:
        if run["run_type"] != "iteration" or run.get("error_occurred"):
            continue
        topic, contender, *arguments = run["run_name"].split("/")
        key = tuple(tuple(a.rsplit(":", 1)) for a in arguments if not re.match("iterations|repeats|min_time", a))
        time = run["cpu_time"] * NANOSECONDS[run["time_unit"]] / run.get("operations", 1.0)
        row = times[topic][key]
        row[contender] = min(time, row.get(contender, math.inf))
        if "result" in run:
            results[topic][key][contender] = round(run["result"])
    return times, results


def mean_over(rows, argument):
    gathered = defaultdict(lambda: defaultdict(list))
    for key, row in rows.items():
        rest = tuple(a for a in key if a[0] != argument)
        for contender, time in row.items():
            gathered[rest][contender].append(time)
    full = {rest: max(map(len, row.values())) for rest, row in gathered.items()}
    return {
        rest: {c: geometric_mean(t) for c, t in row.items() if len(t) == full[rest]} for rest, row in gathered.items()
    }


def is_ours(contender):
    return contender.startswith("zrBase")


def best_peer(row):
    peers = {c: t for c, t in row.items() if not is_ours(c)}
    whole = {c: t for c, t in peers.items() if not c.endswith("*")}
    return min((whole or peers).values(), default=None)


def time_text(nanoseconds):
    if nanoseconds < 1e3:
        return f"{nanoseconds:.3g} ns"
    if nanoseconds < 1e6:
        return f"{nanoseconds / 1e3:.3g} µs"
    return f"{nanoseconds / 1e6:.3g} ms"


def ratio_text(ratio):
    return f"{ratio:.0f}" if ratio >= 99.5 else f"{ratio:.2g}" if ratio >= 9.95 else f"{ratio:.2f}"


def print_table(topic, rows, results):
    contenders = list(dict.fromkeys(c for row in rows.values() for c in row))
    contenders.sort(key=lambda c: not is_ours(c))
    ours = [c for c in contenders if is_ours(c)]
    has_peers = len(contenders) > len(ours)
    arguments = [name for name, _ in next(iter(rows))]
    ratio_heads = [f"ratio {c[7:]}".strip() for c in ours] if has_peers else []
    heads = arguments + contenders + ratio_heads
    print(f"\n### {topic}\n\n| {' | '.join(heads)} |\n|{'---|' * len(heads)}")
    ratios = defaultdict(list)
    for key, row in rows.items():
        cells = [value for _, value in key] + [time_text(row[c]) if c in row else "" for c in contenders]
        for c in ours if has_peers else []:
            peer = best_peer(row)
            if peer is None or c not in row:
                cells.append("")
                continue
            ratios[c].append(peer / row[c])
            cells.append(ratio_text(peer / row[c]))
        print(f"| {' | '.join(cells)} |")
    print()
    for c, values in ratios.items():
        low, mean, high = map(ratio_text, (min(values), geometric_mean(values), max(values)))
        print(f"{c}: geometric mean of ratios {mean}, from {low} to {high}")
    for key, found in results.items():
        if len(set(found.values())) > 1:
            name = ", ".join(f"{argument} {value}" for argument, value in key)
            print(f"differing results {name}: {', '.join(f'{c} {r}' for c, r in found.items())}")


def print_growth(rows):
    """Exponents of time over the number of vertices: between the ends, and fitted to all sizes."""
    series = defaultdict(dict)
    for key, row in rows.items():
        rest = ", ".join(f"{a} {v}" for a, v in key if a != "vertices")
        for a, v in key:
            if a == "vertices":
                for contender, time in row.items():
                    series[contender, rest][int(v)] = time
    for (contender, rest), times in series.items():
        if len(times) < 3:
            continue
        low, high = min(times), max(times)
        x = [math.log(n) for n in times]
        y = [math.log(t) for t in times.values()]
        mx, my = sum(x) / len(x), sum(y) / len(y)
        slope = sum((a - mx) * (b - my) for a, b in zip(x, y)) / sum((a - mx) ** 2 for a in x)
        ends = math.log(times[high] / times[low]) / math.log(high / low)
        print(f"growth of {contender} {rest}: n^{ends:.2f} from {low} to {high}, fitted n^{slope:.2f}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="+", metavar="FILE")
    parser.add_argument("--mean", metavar="ARGUMENT")
    parser.add_argument("--topic", metavar="TEXT", default="")
    options = parser.parse_args()
    times, results = read(options.files)
    for topic in sorted(times):
        if not topic.startswith(options.topic):
            continue
        rows = mean_over(times[topic], options.mean) if options.mean else times[topic]
        rows = dict(sorted(rows.items(), key=lambda item: [(a, float(v)) for a, v in item[0]]))
        print_table(topic, rows, {} if options.mean else results[topic])
        print_growth(rows)


if __name__ == "__main__":
    main()
