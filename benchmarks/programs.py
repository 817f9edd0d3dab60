"""The programs that measure: how each is run, what its reference is and which targets its figures have."""

import dataclasses
import json
import os
import pathlib
import re
import statistics
import subprocess
import time
from collections.abc import Callable

ROOT = pathlib.Path(__file__).resolve().parent.parent
BIN = ROOT / "build" / "bench" / "bin"
MS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


class Failure(Exception):
    """A program that does not exist, fails, or does not print what it should."""


@dataclasses.dataclass
class Figure:
    """Milliseconds, how many times the reference that is, and the target of one of the two."""

    ms: float
    ratio: float
    target: float | None = None
    met: bool | None = None


@dataclasses.dataclass
class Program:
    reference: str
    measure: Callable[[pathlib.Path], dict[str, Figure]]
    executables: list[str]
    targets: dict[str, float] = dataclasses.field(default_factory=dict)


def run(command: list, **options) -> tuple[str, float, float]:
    """What a command prints, and its wall and processor time in ms."""
    if not pathlib.Path(command[0]).exists():
        raise Failure(f"{command[0]} is not there (build the preset bench)")
    begin = time.perf_counter()
    process = subprocess.Popen([str(word) for word in command], stdout=subprocess.PIPE, text=True, **options)
    printed = process.stdout.read()
    _, status, usage = os.wait4(process.pid, 0)
    wall = time.perf_counter() - begin
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise Failure(f"{' '.join(map(str, command))} ended with {process.returncode}")
    return printed, 1e3 * wall, 1e3 * (usage.ru_utime + usage.ru_stime)


def with_target(ms: float, ratio: float, target: float | None) -> Figure:
    return Figure(ms, ratio, target, None if target is None else ms <= target)


def micro(executable: str, reference: str, targets: dict[str, float]) -> Callable[[pathlib.Path], dict[str, Figure]]:
    """Of a program of Google's benchmark library; the median of three runs of each figure."""

    def measure(_: pathlib.Path) -> dict[str, Figure]:
        options = ["--benchmark_format=json", "--benchmark_repetitions=3", "--benchmark_min_time=0.1"]
        printed = json.loads(run([BIN / executable, *options], stderr=subprocess.DEVNULL)[0])
        times: dict[str, list[float]] = {}
        for entry in printed["benchmarks"]:
            if entry["run_type"] == "iteration":
                name = entry["run_name"].removesuffix("/real_time").removesuffix("/process_time")
                times.setdefault(name, []).append(entry["cpu_time"] * MS[entry["time_unit"]])
        medians = {name: statistics.median(values) for name, values in times.items()}
        if reference not in medians:
            raise Failure(f"no {reference}, which is the reference")
        return {name: with_target(ms, ms / medians[reference], targets.get(name)) for name, ms in medians.items()}

    return measure


def traces(scratch: pathlib.Path) -> dict[str, Figure]:
    """Its targets stand in what it prints."""
    printed = run([BIN / "traces_benchmark", scratch])[0]
    lines = re.findall(
        r"^  (\S.*?) {2,}([\d.]+) (ms|s)(?: +(ours / limit) = [\d.]+)?(?: +\(target <= ([\d.]+)\))?$",
        printed,
        re.MULTILINE,
    )
    limit = next((float(value) * MS[unit] for title, value, unit, *_ in lines if title.startswith("limit")), None)
    if limit is None:
        raise Failure("no limit of reading, which is the reference")
    figures = {}
    for title, value, unit, of_limit, target in lines:
        ms = float(value) * MS[unit]
        figure = Figure(ms, ms / limit)
        if target:
            figure.target = float(target)
            figure.met = (figure.ratio if of_limit else ms) <= figure.target
        figures[f"{title}, x ref." if of_limit else title] = figure
    return figures


def recording(scratch: pathlib.Path, *options: str) -> pathlib.Path:
    path = scratch / f"{'_'.join(options).replace('--', '')}.edf"
    if not path.exists():
        run([BIN / "orvanta", "demo", "--out", path, *options])
    return path


def batch(scratch: pathlib.Path) -> dict[str, Figure]:
    file = recording(scratch, "--minutes", "20", "--channels", "32")
    taken: dict[str, list[float]] = {"read": [], "keep": []}
    for _ in range(3):
        for way in taken:
            taken[way].append(run([BIN / "batch_benchmark", file, scratch, way])[2])
    medians = {way: statistics.median(times) for way, times in taken.items()}
    return {
        f"60 files, samples {title}": Figure(medians[way], medians[way] / medians["read"])
        for way, title in (("read", "read each time"), ("keep", "kept in memory"))
    }


def engine_limit(scratch: pathlib.Path) -> dict[str, Figure]:
    file = recording(scratch, "--minutes", "60", "--channels", "64", "--rate", "512")
    figures = {}
    for threads in (1, os.cpu_count()):
        seconds = []
        for _ in range(5):
            printed = run([BIN / "engine_limit", file, threads])[0]
            found = dict(re.findall(r"^(\w+)_seconds ([\d.]+)$", printed, re.MULTILINE))
            if found.keys() != {"limit", "engine"}:
                raise Failure(f"it printed {printed!r}")
            seconds.append((float(found["engine"]), float(found["limit"])))
        ours, limit = (statistics.median(column) for column in zip(*seconds))
        title = f"an hour of 64 channels at 512 Hz, {'one thread' if threads == 1 else 'all cores'}, wall time, x ref."
        figures[title] = Figure(1e3 * ours, ours / limit, 2, ours / limit <= 2)
    return figures


SHOWS = re.compile(r"^(\S+) info (opening|first page of) .* \(processor time (\d+) ms\)$", re.MULTILINE)


class Screen:
    """A virtual X server that lives as long as the block."""

    def __enter__(self) -> dict[str, str]:
        command = ["Xvfb", "-displayfd", "1", "-screen", "0", "1600x900x24", "-nolisten", "tcp"]
        self.server = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        display = self.server.stdout.readline().strip()
        if not display:
            raise Failure("Xvfb does not start")
        return {"DISPLAY": f":{display}", "QT_QPA_PLATFORM": "xcb"}

    def __exit__(self, *_: object) -> None:
        self.server.terminate()
        self.server.wait()


def shown(file: pathlib.Path, scratch: pathlib.Path, screen: dict[str, str]) -> dict[str, float]:
    """Starts the application with a file until its log tells of the first page; ms of wall and of processor time from
    the start and from the opening of the file."""
    log = scratch / "review.log"
    log.unlink(missing_ok=True)
    home = {"HOME": str(scratch), "XDG_CONFIG_HOME": str(scratch), "XDG_DATA_HOME": str(scratch)}
    begin = time.time()
    process = subprocess.Popen(
        [BIN / "orvanta", "review", file, "--safe-mode", "--log", log],
        env={**os.environ, **home, **screen},
        stderr=subprocess.DEVNULL,
    )
    try:
        found = {}
        while len(found) < 2:
            if process.poll() is not None or time.time() > begin + 60:
                raise Failure(f"orvanta review {file.name}: no first page in its log")
            time.sleep(0.01)
            for moment, what, processor in SHOWS.findall(log.read_text(encoding="utf-8") if log.exists() else ""):
                found[what] = (1e3 * time.mktime(time.strptime(moment[:19], "%Y-%m-%dT%H:%M:%S")), moment, processor)
    finally:
        process.terminate()
        process.wait()

    def wall(what: str) -> float:
        whole, moment, _ = found[what]
        return whole + float(moment[20:23])

    opened, page = (float(found[what][2]) for what in ("opening", "first page of"))
    return {
        "start, processor": page,
        "start, wall": wall("first page of") - 1e3 * begin,
        "file, processor": page - opened,
        "file, wall": wall("first page of") - wall("opening"),
    }


def review(scratch: pathlib.Path) -> dict[str, Figure]:
    demo = recording(scratch, "--minutes", "10")
    large = scratch / "traces_2gb.edf"
    if not large.exists():
        run([BIN / "traces_benchmark", scratch])
    runs = 7
    with Screen() as screen:
        of_demo = [shown(demo, scratch, screen) for _ in range(runs)]
        of_large = [shown(large, scratch, screen) for _ in range(runs)]
    reference = statistics.median(run([BIN / "orvanta", "info", demo])[2] for _ in range(runs))
    figures = {}
    for title, times, key, target in (
        ("from the start to the first page of the demo, wall time", of_demo, "start, wall", 400),
        ("from the start to the first page of the demo", of_demo, "start, processor", 400),
        ("from opening 2 GB to its first page on the screen, wall time", of_large, "file, wall", 100),
        ("from opening 2 GB to its first page on the screen", of_large, "file, processor", 100),
    ):
        ms = statistics.median(entry[key] for entry in times)
        figures[title] = with_target(ms, ms / reference, target)
    return figures



def micro_program(reference: str, title: str, executable: str, targets: dict[str, float]) -> Program:
    return Program(reference, micro(executable, title, targets), [executable], targets)


def window_program(executable: str, targets: dict[str, float]) -> Program:
    return micro_program("lines that Qt draws alone", "QtAlone", executable, targets)


PROGRAMS = {
    "engine": micro_program("FFTW, 1,024 points, float", "FftwFloat/1024", "engine_benchmarks", {}),
    "engine_limit": Program("reading and bare transforms", engine_limit, ["engine_limit"]),
    "export": micro_program("snprintf", "NumbersBySnprintf", "export_benchmarks", {}),
    "batch": Program("samples read each time", batch, ["batch_benchmark"]),
    "traces": Program("reading, least and greatest of each second", traces, ["traces_benchmark"]),
    "review": Program("orvanta info", review, ["orvanta"]),
    "forms": window_program("forms_benchmarks", {"OpenSettings/200": 50, "OpenLibrary/1000": 100}),
    "side_bar": window_program(
        "side_bar_benchmarks", {"ChooseMain/0": 50, "ChooseMain/1": 50, "ChooseSecondary": 50}
    ),
    "painting": window_program(
        "painting_benchmarks",
        {"MeanPlots/side:8/scale:100/compared:0": 8, "MeanPlots/side:16/scale:100/compared:0": 25},
    ),
    "over_time": window_program("over_time_benchmarks", {}),
    "topography": window_program(
        "topography_benchmarks",
        {
            "FieldsOfSixteenMaps/128": 10,
            "NewValuesOfSixteenMaps/electrodes:64/3d:0": 40,
            "TurningHead/1": 16,
            "TurningAWindow/electrodes:64": 16,
        },
    ),
    "cartoon": window_program(
        "cartoon_benchmarks",
        {
            "StepOfSixteenMaps/electrodes:64/heads:0/width:1300/height:660": 40,
            "StepOfSixteenMaps/electrodes:64/heads:0/width:1900/height:1000": 40,
        },
    ),
    "trace_view": window_program(
        "trace_view_benchmarks", {"TracePage/scale:100/columns:0": 16, "TracePage/scale:100/columns:1": 16}
    ),
}


def never_run() -> list[str]:
    """What is declared in the folders of benchmarks/ and missing above."""
    declared = {
        name
        for file in (ROOT / "benchmarks").glob("*/CMakeLists.txt")
        for name in re.findall(r"orvanta_add_program\((\w+)", file.read_text(encoding="utf-8"))
    }
    return sorted(declared - {name for program in PROGRAMS.values() for name in program.executables})


def targets_without_figure(name: str, figures: dict[str, Figure]) -> list[str]:
    return [title for title in PROGRAMS[name].targets if title not in figures]
