#!/usr/bin/env python3
"""Prints the medians of a Google Benchmark result as a table, with the ratio to the sibling "<name>/floor"."""

import json
import re
import sys

UNITS = {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}


def main(path):
    with open(path, encoding="utf-8") as file:
        result = json.load(file)
    rows = {}
    for run in result["benchmarks"]:
        if run.get("aggregate_name") != "median":
            continue
        name = run["run_name"]
        name = re.sub(r"/(real_time|process_time|manual_time|iterations:\d+)(?=/|$)", "", name)
        time = (run["real_time"] if "manual_time" in run["run_name"] else run["cpu_time"]) * UNITS[run["time_unit"]]
        known = {"name", "run_name", "run_type", "repetitions", "threads", "aggregate_name", "aggregate_unit",
                 "iterations", "real_time", "cpu_time", "time_unit", "family_index", "per_family_instance_index",
                 "repetition_index", "label", "items_per_second", "bytes_per_second"}
        counters = {key: value for key, value in run.items() if key not in known}
        rows[name] = (time, counters)
    width = max(map(len, rows), default=20)
    print(f"{'benchmark':<{width}}  {'us':>12}  {'ratio':>6}  counters")
    for name, (time, counters) in rows.items():
        floor = rows.get(name + "/floor")
        ratio = f"{time / floor[0]:.2f}" if floor and floor[0] > 0 else ""
        extra = "  ".join(f"{key}={value:g}" for key, value in counters.items())
        print(f"{name:<{width}}  {time:>12.3f}  {ratio:>6}  {extra}".rstrip())


if __name__ == "__main__":
    main(sys.argv[1])
