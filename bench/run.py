#!/usr/bin/env python3
"""Judging a million rows against a program with nothing of the project in it, and against mawk.

Prints the least processor seconds of five runs in turn, the ratios and the memory: run.py [BUILD_FOLDER]
"""
import os, pathlib, subprocess, sys, tempfile

root = pathlib.Path(__file__).resolve().parent.parent
programs = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else root / "build/release") / "bin"
CONDITIONS = """{"version": 1, "mode": "all", "conditions": [
    {"name": "float0", "input": "5.Mean.Radius", "minimum": 10, "maximum": 20},
    {"name": "float1", "input": "5.Mean.Texture", "minimum": 15, "maximum": 25},
    {"name": "float2", "input": "5.Mean.Perimeter", "minimum": 60, "maximum": 120},
    {"name": "float3", "input": "5.Mean.Area", "minimum": 300, "maximum": 1000}]}"""
AWK = """BEGIN { FS = ","; CONVFMT = "%.15g"; split("10 15 60 300", low, " "); split("20 25 120 1000", high, " ") }
NR > 1 {
    ok = 1; text = ""
    for (i = 1; i <= 4; i++) {
        value = $(i + 1) + 0; met = value >= low[i] && value <= high[i]; ok = ok && met
        text = text "," value "," low[i] "," high[i] (met ? ",in" : ",out")
    }
    print NR (ok ? ",OK" : ",not OK") text
}"""

with tempfile.TemporaryDirectory() as folder:
    table, conditions, out = (os.path.join(folder, name) for name in ("table.csv", "conditions.json", "out"))
    header, rows = (root / "workbench/samples/nuclei.csv").read_text().split("\n", 1)
    with open(table, "w") as file:
        file.writelines([header, "\n"] + [rows] * 1760)
    pathlib.Path(conditions).write_text(CONDITIONS)
    workbench = [programs / "if-workbench", "--conditions", conditions, "--run", table]
    subjects = {"floor": [programs / "run_floor"], "--run": workbench, "mawk": ["mawk", AWK, table],
                "counting floor": [programs / "run_floor", "--summary"], "--run --summary": workbench + ["--summary"]}

    seconds, kilobytes = dict.fromkeys(subjects, 1e9), {}
    for _ in range(5):
        for name, command in subjects.items():
            with open(table) as given, open(out, "w") as written:
                process = subprocess.Popen(command, stdin=given, stdout=written, stderr=subprocess.DEVNULL)
                _, status, usage = os.wait4(process.pid, 0)
                assert status == 0, name
            seconds[name] = min(seconds[name], usage.ru_utime + usage.ru_stime)
            kilobytes[name] = usage.ru_maxrss
    for name in subjects:
        print(f"{name:16} {seconds[name]:5.2f} s {kilobytes[name] / 1024:5.1f} MB")
    for subject, floor in ("--run", "floor"), ("--run", "mawk"), ("--run --summary", "counting floor"):
        print(f"{subject} / {floor}: {seconds[subject] / seconds[floor]:.2f}")
