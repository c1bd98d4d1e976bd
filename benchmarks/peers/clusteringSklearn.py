#!/usr/bin/python3
"""Times of scikit-learn's KMeans on the clouds of clustering.cpp, in the JSON form of the benchmark program.

usage: clusteringSklearn.py [--out FILE] [--filter REGEX] [--long] [--against FILE]

One thread. KMeans.fit does more than its stages: it checks and copies the points, moves them to their mean, and assigns
them once more at its end. So there are, from the same fits,

- lloyd1... and lloyd20...: the whole fit with max_iter 1 and 20;
- lloydStage...: one stage alone, the difference of both over the number of stages between. Where the run ends itself
  before stage 20, the last of those that still move a point counts instead.

--long adds a million points with a thousand centers, the difference of 4 stages and 1 (some 15 minutes, 9 GB).
--against takes what the benchmark program wrote, and tells where the distortions differ, relatively, by more than 1e-9.
"""

import os

for variable in ("OMP_NUM_THREADS", "OPENBLAS_NUM_THREADS"):
    os.environ[variable] = "1"  # before the libraries are loaded

import argparse
import json
import math
import re
import sys
import time
import warnings

import numpy as np
from sklearn.cluster import KMeans
from sklearn.exceptions import ConvergenceWarning
from threadpoolctl import threadpool_limits

STAGES_OF_RUN = 20
ALGORITHMS = ("lloyd", "elkan")


def uniform(stream, n):
    """The numbers n (an array) of a stream, in [0, 1): splitmix64."""
    z = (n.astype(np.uint64) + np.uint64((stream << 40) + 1)) * np.uint64(0x9E3779B97F4A7C15)
    z = (z ^ (z >> np.uint64(30))) * np.uint64(0xBF58476D1CE4E5B9)
    z = (z ^ (z >> np.uint64(27))) * np.uint64(0x94D049BB133111EB)
    z = z ^ (z >> np.uint64(31))
    return (z >> np.uint64(11)).astype(np.float64) * (1.0 / 9007199254740992.0)


def cloud(layout, dim, count):
    """The points that clustering.cpp makes, to the last bit."""
    n = np.arange(count * dim).reshape(count, dim)
    if layout == "Uniform":
        return uniform(2, n)
    place = (100.0 * uniform(1, np.arange(count))).astype(np.int64)
    bell = ((uniform(2, n) + uniform(3, n)) + uniform(4, n)) + uniform(5, n) - 2.0
    reach = 0.0866025403784439 if layout == "Wide" else 0.0346410161513775
    return uniform(0, place[:, np.newaxis] * dim + np.arange(dim)) + reach * bell


def fit(points, centers, algorithm, stages):
    """A fit, with its CPU and wall-clock times in nanoseconds."""
    means = KMeans(
        n_clusters=len(centers), init=centers, n_init=1, max_iter=stages, tol=0.0, algorithm=algorithm
    )
    with warnings.catch_warnings():
        warnings.simplefilter("ignore", ConvergenceWarning)
        cpu, real = time.process_time_ns(), time.perf_counter_ns()
        means.fit(points)
        return means, (time.process_time_ns() - cpu, time.perf_counter_ns() - real)


def best_fit(points, centers, algorithm, stages, seconds):
    """The least times of 2 to 10 fits, as many as the seconds allow; one of twice the seconds is not repeated."""
    means, times = fit(points, centers, algorithm, stages)
    repeats = min(10, max(2, math.ceil(seconds * 1e9 / times[0]))) if times[1] < 2e9 * seconds else 1
    for _ in range(repeats - 1):
        times = tuple(map(min, times, fit(points, centers, algorithm, stages)[1]))
    return means, times


def nine_digits(distortion):
    return math.floor(distortion * math.pow(10.0, 8.0 - math.floor(math.log10(distortion))) + 0.5)


class Report:
    """The runs, as Google Benchmark writes them."""

    def __init__(self, ours):
        self.runs = []
        self.ours = ours

    def add(self, name, times, means=None):
        run = {
            "name": name,
            "run_name": name,
            "run_type": "iteration",
            "repetitions": 1,
            "iterations": 1,
            "cpu_time": times[0],
            "real_time": times[1],
            "time_unit": "ns",
        }
        if means is not None:
            run["distortion"] = means.inertia_
            run["result"] = nine_digits(means.inertia_)
            self.compare(name, means)
        self.runs.append(run)
        print(f"{name:70} {times[0] / 1e6:12.3f} ms", file=sys.stderr, flush=True)

    def compare(self, name, means):
        topic, _, *arguments = name.split("/")
        ours = self.ours.get("/".join([topic, "zrBase", *arguments]))
        if ours is not None and abs(ours / means.inertia_ - 1.0) > 1e-9:
            # So they do where a cluster runs empty: the peer moves its center elsewhere.
            print(f"differs: {name} {ours / means.inertia_ - 1.0:.3e}", file=sys.stderr)


def measure(report, points, layout, dim, count, k, seconds):
    centers = points[np.arange(k) * (count // k)]
    is_long = count * k > 100_000_000
    for algorithm in ALGORITHMS:
        end = f"/sklearn_{algorithm}/dim:{dim}/points:{count}/centers:{k}"
        once, once_times = best_fit(points, centers, algorithm, 1, seconds)
        report.add(f"lloyd1{layout}{end}", once_times, once)
        stages = 4 if is_long else STAGES_OF_RUN
        run, run_times = best_fit(points, centers, algorithm, stages, seconds)
        if not is_long:
            report.add(f"lloyd20{layout}{end}", run_times, run)
        if run.n_iter_ < stages:
            # The last stage found that nothing moves any more, and the points were not assigned again after it.
            stages = run.n_iter_ - 1
            run, run_times = best_fit(points, centers, algorithm, stages, seconds)
        if stages > 1 and all(a < b for a, b in zip(once_times, run_times)):  # else lost in the noise
            report.add(f"lloydStage{layout}{end}", [(b - a) / (stages - 1) for a, b in zip(once_times, run_times)])


def distortions(path):
    if path is None:
        return {}
    with open(path, encoding="utf-8") as file:
        return {r["run_name"]: r["distortion"] for r in json.load(file)["benchmarks"] if "distortion" in r}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--out", metavar="FILE")
    parser.add_argument("--filter", metavar="REGEX", default="", help="of Layout/dim:D/points:N/centers:K")
    parser.add_argument("--seconds", type=float, default=1.0, help="that the fits of one time take (1)")
    parser.add_argument("--long", action="store_true")
    parser.add_argument("--against", metavar="FILE")
    options = parser.parse_args()
    report = Report(distortions(options.against))
    with threadpool_limits(limits=1):
        for layout in ("Clustered", "Uniform", "Wide"):
            for dim in (2, 3, 8):
                for count in (10_000, 100_000, 1_000_000):
                    points = None
                    for k in (100,) if layout == "Wide" else (10, 100, 1_000):
                        name = f"{layout}/dim:{dim}/points:{count}/centers:{k}"
                        if not re.search(options.filter, name) or (count * k > 100_000_000 and not options.long):
                            continue
                        if points is None:
                            points = cloud(layout, dim, count)
                        measure(report, points, layout, dim, count, k, options.seconds)
    text = json.dumps({"context": {"executable": os.path.basename(__file__)}, "benchmarks": report.runs}, indent=1)
    if options.out is None:
        print(text)
    else:
        with open(options.out, "w", encoding="utf-8") as file:
            file.write(text + "\n")


if __name__ == "__main__":
    main()
