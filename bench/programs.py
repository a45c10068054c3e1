"""The benchmark programs of this folder as tables."""
import json
import os
import re
import subprocess
import tempfile

from measuring import PROGRAM

# The programs whose figures stand in docs/performance.md, with what one item of each is.
PROGRAMS = {"journal": "changed entities", "database": "operations", "drawing_files": "entities",
            "labels": "entities or requests"}
UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def results_of(name):
    """Runs one program; gives back what it measured."""
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "results.json")
        subprocess.run([PROGRAM.parent / name, f"--benchmark_out={path}", "--benchmark_out_format=json"],
                       stdout=subprocess.DEVNULL, check=True)
        with open(path, encoding="utf-8") as file:
            return json.load(file)["benchmarks"]


def shown_time(seconds):
    for unit, name in ((1.0, "s"), (1e-3, "ms"), (1e-6, "µs")):
        if seconds >= unit:
            return f"{seconds / unit:.3g} {name}"
    return f"{seconds * 1e9:.3g} ns"


def parts_of(name):
    """undo/100000/iterations:5 -> undo, 100,000; read/ascii -> read ascii, nothing."""
    words = [word for word in name.split("/") if not re.match(r"(iterations|min_time):", word)]
    sizes = [f"{int(word):,}" for word in words if word.isdigit()]
    return " ".join(word for word in words if not word.isdigit()), " ".join(sizes)


def print_program(report, name):
    report.begin(name, "measured", "of", "time", f"{PROGRAMS[name]} a second", "MB a second",
                 note=f"; `build/bin/{name}`, one process")
    for result in results_of(name):
        if result.get("run_type") == "aggregate":
            if result["aggregate_name"] == "BigO":
                report.row(parts_of(result["run_name"])[0], "", f"grows like {result['big_o']}", "", "")
            continue
        measured, size = parts_of(result["name"])
        per_second = result.get("items_per_second", 0.0)
        megabytes = result.get("bytes_per_second", 0.0) / 2**20
        report.row(measured, size, shown_time(result["real_time"] * UNITS[result["time_unit"]]), f"{per_second:,.0f}",
                   f"{megabytes:,.0f}" if megabytes else "")
    report.end()


def print_programs(report, *_):
    for name in PROGRAMS:
        print_program(report, name)
