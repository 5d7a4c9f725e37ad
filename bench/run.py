#!/usr/bin/env python3
# Judges a million rows, in turn with a program that has nothing of the project in it and with mawk. Prints the least
# processor seconds of five runs, the memory and the ratios; fails when a bound is exceeded.
import json, os, pathlib, subprocess, sys, tempfile

root = pathlib.Path(__file__).resolve().parent.parent
programs = root / "build/release/bin"
LIMITS = {"5.Mean.Radius": (10, 20), "5.Mean.Texture": (15, 25), "5.Mean.Perimeter": (60, 120), "5.Mean.Area": (300, 1000)}
CONDITIONS = [{"name": f"float{i}", "input": name, "minimum": LIMITS[name][0], "maximum": LIMITS[name][1]}
              for i, name in enumerate(LIMITS)]
AWK = """BEGIN { FS = ","; CONVFMT = "%.15g"; split("10 15 60 300", low, " "); split("20 25 120 1000", high, " ") }
NR > 1 {
    ok = 1; text = ""; for (i = 1; i <= 4; i++) {
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
    pathlib.Path(conditions).write_text(json.dumps({"version": 1, "mode": "all", "conditions": CONDITIONS}))
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
    outcome = 0
    for subject, floor, bound in ("--run", "floor", 1.6), ("--run", "mawk", 0.35), ("--run --summary", "counting floor", 2):
        ratio = seconds[subject] / seconds[floor]
        print(f"{subject} / {floor}: {ratio:.2f}  at most {bound}{'' if ratio <= bound else '  EXCEEDED'}")
        outcome |= ratio > bound
    sys.exit(outcome)
