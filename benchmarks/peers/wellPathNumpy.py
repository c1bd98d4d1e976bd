#!/usr/bin/python3
"""Minimum curvature in NumPy, over the stations of wellPath.cpp.

usage: wellPathNumpy.py [--out FILE] [--benchmark_filter=REGEX] [--benchmark_repetitions=N] [...]

Takes options of the benchmark program, passes over those that it does not know, and writes its times in the same form.
Times are the least of the repetitions, of the computation alone: cpu_time is that of this process, real_time the clock's.
"""

import argparse
import json
import os
import re
import sys
import time

# One thread, before NumPy reads it.
os.environ.setdefault("OMP_NUM_THREADS", "1")
os.environ.setdefault("OPENBLAS_NUM_THREADS", "1")

import numpy as np  # noqa: E402

STATIONS = (1000, 1000000)
BLOCK = 4096


def drawn(index):
    """The numbers of indices in a sequence of doubles in [0, 1), by SplitMix64."""
    z = (index + np.uint64(1)) * np.uint64(0x9E3779B97F4A7C15)
    z = (z ^ (z >> np.uint64(30))) * np.uint64(0xBF58476D1CE4E5B9)
    z = (z ^ (z >> np.uint64(27))) * np.uint64(0x94D049BB133111EB)
    z ^= z >> np.uint64(31)
    return (z >> np.uint64(11)).astype(np.float64) * (1.0 / 9007199254740992.0)


def survey_of(count):
    """Lengths, inclinations and azimuths; wellPath.cpp tells of them."""
    i = np.arange(count, dtype=np.uint64)
    three = np.uint64(3)
    turned = i - (i % np.uint64(16) == np.uint64(15)).astype(np.uint64)
    phase = (turned % np.uint64(1800)).astype(np.float64) - 900.0
    length = 20.0 + 20.0 * drawn(three * i)
    inclination = 0.1 * np.abs(phase) + drawn(three * turned + np.uint64(1))
    azimuth = 0.1 * (turned % np.uint64(3590)).astype(np.float64) + drawn(three * turned + np.uint64(2))
    return length, inclination, azimuth


def offsets(length, inclination, azimuth):
    """Offsets between the stations. Sines and cosines are taken once a station, not once an interval."""
    i = np.radians(inclination)
    a = np.radians(azimuth)
    sin_i = np.sin(i)
    cos_i = np.cos(i)
    cosine = np.cos(i[1:] - i[:-1]) - (1.0 - np.cos(a[1:] - a[:-1])) * sin_i[:-1] * sin_i[1:]
    same = (inclination[1:] == inclination[:-1]) & (azimuth[1:] == azimuth[:-1])
    average = same | (cosine >= 1.0) | (np.abs(cosine) < 0.01)
    np.clip(cosine, -1.0, 1.0, out=cosine)
    cosine[average] = 0.0  # any dogleg but none: these intervals are overwritten
    dogleg = np.arccos(cosine)
    half = length[1:] / 2.0 * (2.0 * np.tan(dogleg / 2.0) / dogleg)
    east = sin_i * np.sin(a)
    north = sin_i * np.cos(a)
    x = half * (east[:-1] + east[1:])
    y = half * (north[:-1] + north[1:])
    z = half * (cos_i[:-1] + cos_i[1:])

    where = np.flatnonzero(average)
    mean_i = (i[where] + i[where + 1]) / 2.0
    mean_a = (a[where] + a[where + 1]) / 2.0
    straight = length[where + 1]
    reach = straight * np.sin(mean_i)
    x[where] = reach * np.sin(mean_a)
    y[where] = reach * np.cos(mean_a)
    z[where] = straight * np.cos(mean_i)
    return x, y, z


def whole(length, inclination, azimuth):
    """Positions of all stations at once."""
    return [np.cumsum(offset) for offset in offsets(length, inclination, azimuth)]


def in_blocks(length, inclination, azimuth):
    """Positions by blocks whose temporary arrays stay in the cache."""
    path = [np.zeros(len(length)) for _ in range(3)]
    for begin in range(0, len(length) - 1, BLOCK):
        part = slice(begin, begin + BLOCK + 1)
        for positions, offset in zip(path, offsets(length[part], inclination[part], azimuth[part])):
            np.cumsum(offset, out=positions[begin + 1 : begin + 1 + len(offset)])
            positions[begin + 1 : begin + 1 + len(offset)] += positions[begin]
    return path


def measured(name, contender, survey, repetitions):
    """The least time of several calls, and the reach of the last station in millimetres."""
    wall = []
    cpu = []
    calls = max(1, 1000000 // len(survey[0]) // 20)
    for _ in range(repetitions):
        began = time.perf_counter(), time.process_time()
        for _ in range(calls):
            path = contender(*survey)
        wall.append((time.perf_counter() - began[0]) / calls)
        cpu.append((time.process_time() - began[1]) / calls)
    return {
        "name": name,
        "run_name": name,
        "run_type": "iteration",
        "repetitions": repetitions,
        "iterations": calls,
        "real_time": min(wall) * 1e9,
        "cpu_time": min(cpu) * 1e9,
        "time_unit": "ns",
        "operations": len(survey[0]) - 1.0,
        "result": round(sum(abs(float(axis[-1])) for axis in path) * 1000.0),
    }


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter, allow_abbrev=False
    )
    parser.add_argument("--out", metavar="FILE")
    parser.add_argument("--benchmark_filter", default=".")
    parser.add_argument("--benchmark_repetitions", type=int, default=5)
    options, _ = parser.parse_known_args()
    runs = []
    for count in STATIONS:
        survey = survey_of(count)
        for contender, function in (("NumPy", whole), ("NumPy_in_blocks", in_blocks)):
            name = f"minimumCurvature/{contender}/stations:{count}"
            if re.search(options.benchmark_filter, name):
                runs.append(measured(name, function, survey, options.benchmark_repetitions))
                print(f"{name:60} {runs[-1]['cpu_time'] / 1000.0:12.1f} us", file=sys.stderr)
    text = json.dumps({"context": {"numpy": np.__version__}, "benchmarks": runs}, indent=2)
    if options.out:
        with open(options.out, "w", encoding="utf-8") as file:
            file.write(text + "\n")
    else:
        print(text)


if __name__ == "__main__":
    main()
