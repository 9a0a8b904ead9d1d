"""What the flow tests share: a fresh pen, and the desk run by a script without a display."""
import os
import pathlib
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
TIMEOUT_SECONDS = 240


def check(condition, what, printed):
    """Fails with what is wrong, and with what the desk has printed."""
    if not condition:
        raise AssertionError(f"{what}\n{printed}")


class Pen:
    """A run root of its own in a temporary folder, and the desk's output beside it."""

    def __init__(self, build, wrapper=()):
        """`wrapper`: a command in front of the desk's, such as one that sets its clock."""
        self.build = pathlib.Path(build)
        self.wrapper = wrapper
        self._folder = tempfile.TemporaryDirectory(prefix="swipeline-flow-")
        self.folder = pathlib.Path(self._folder.name)
        self.root = self.folder / "pen"
        self.out = self.folder / "out"
        subprocess.run([ROOT / "scripts" / "make-run-root", self.root, self.build], check=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._folder.cleanup()

    def set_settings(self, group, **values):
        """Writes the settings file anew with one group of integers."""
        lines = [f"[{group}]"] + [f"{key}={value}" for key, value in values.items()]
        (self.root / "apps/config/config.ini").write_text("\n".join(lines) + "\n")

    def desk(self, script, *options):
        """Runs the desk with a script; returns its exit code and what it printed."""
        environment = dict(os.environ, QT_QPA_PLATFORM="")  # chosen by nobody: the desk needs no display
        for variable in ("DISPLAY", "WAYLAND_DISPLAY"):
            environment.pop(variable, None)
        done = subprocess.run(
            [*self.wrapper, self.build / "desk" / "swipeline-desk", "--root", self.root, "--headless", script,
             "--out", self.out, *options],
            env=environment, timeout=TIMEOUT_SECONDS, check=False, text=True,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return done.returncode, done.stdout

    def scan_files(self):
        """The files of the scan folder with their bytes."""
        return {path.name: path.read_bytes()
                for path in sorted((self.root / "mnt/mmc/e_ScanFile").glob("*.txt"))}

    def scanned_text(self):
        """The text of the one scan file, without the blank behind the last scan."""
        files = self.scan_files()
        if len(files) != 1:
            raise AssertionError(f"one scan file expected, found {list(files)}")
        content = next(iter(files.values()))
        if content[:2] != b"\xff\xfe":
            raise AssertionError(f"no byte-order mark: {content[:8]!r}")
        return content[2:].decode("utf-16-le").strip()


def edit_distance(one, other):
    """Characters to insert, delete or replace to make one text of the other."""
    row = list(range(len(other) + 1))
    for i, a in enumerate(one, 1):
        before, row[0] = row[0], i
        for j, b in enumerate(other, 1):
            before, row[j] = row[j], min(row[j] + 1, row[j - 1] + 1, before + (a != b))
    return row[-1]
