"""What bench/compare measures with: whole processes, and sessions whose answers are timed one by one."""
import json
import os
import statistics
import subprocess
import sys
import threading
import time
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PROGRAM = ROOT / "build" / "bin" / "zolcad"
STORE = ROOT / "build" / "bench"


@dataclass
class Runs:
    """Wall times and the highest peak of resident memory of the runs of one process."""
    seconds: list = field(default_factory=list)
    peak_kilobytes: int = 0

    def add(self, seconds, kilobytes):
        self.seconds.append(seconds)
        self.peak_kilobytes = max(self.peak_kilobytes, kilobytes)

    @property
    def median(self):
        return statistics.median(self.seconds)

    @property
    def megabytes(self):
        return self.peak_kilobytes / 1024


def request(command, **parameters):
    """One request line, without its line feed."""
    return json.dumps({"command": command, "parameters": parameters} if parameters else {"command": command})


def object_ids(handles):
    return {"objectIds": handles}


# What a process took at most counts from before it began: the memory of whoever started it. So a small process of its
# own starts it, which says through the file descriptor it is given: exit code, seconds, kilobytes.
LAUNCHER = """
import os, sys, time
start = time.perf_counter()
child = os.posix_spawn(sys.argv[2], sys.argv[2:], os.environ)
_, status, usage = os.wait4(child, 0)
seconds = time.perf_counter() - start
os.write(int(sys.argv[1]), f"{os.waitstatus_to_exitcode(status)} {seconds} {usage.ru_maxrss}".encode())
"""


def timed(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL):
    """Runs one process; gives back its wall time and peak memory. A process that fails ends the measuring."""
    reading, writing = os.pipe()
    subprocess.run([sys.executable, "-I", "-S", "-c", LAUNCHER, str(writing), *command], stdin=stdin, stdout=stdout,
                   pass_fds=[writing], check=True)
    os.close(writing)
    with os.fdopen(reading) as said:
        code, seconds, kilobytes = said.read().split()
    if code != "0":
        sys.exit(f"{' '.join(map(str, command))} ended with {code}")
    return float(seconds), int(kilobytes)


def timed_session(source, requests, answers):
    """Runs `zolcad session` on a drawing (None: a new one) with request lines from a file. The answers go to another
    file; the session exits with 1, and the measuring ends, when one of them carries an error."""
    command = [PROGRAM, "session"] + ([source] if source else [])
    with open(requests, "rb") as stdin, open(answers, "wb") as stdout:
        return timed(command, stdin, stdout)


class Session:
    """A session whose answers are timed one by one."""

    def __init__(self, source):
        self.process = subprocess.Popen([PROGRAM, "session", source], stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait()

    def answer(self):
        line = self.process.stdout.readline()
        if not line or b'"error":{' in line:
            sys.exit(f"unexpected answer: {line[:300]}")
        return line

    def timed(self, command, **parameters):
        """Runs one request; gives back its result and how long the answer took."""
        line = request(command, **parameters).encode() + b"\n"
        start = time.perf_counter()
        self.process.stdin.write(line)
        self.process.stdin.flush()
        answer = self.answer()
        return json.loads(answer)["result"], time.perf_counter() - start

    def rate(self, lines):
        """Sends these requests without waiting; gives back the answers a second and the answers."""
        def send():
            self.process.stdin.writelines(lines)
            self.process.stdin.flush()
        start = time.perf_counter()
        sender = threading.Thread(target=send)
        sender.start()
        answers = [self.answer() for _ in lines]
        seconds = time.perf_counter() - start
        sender.join()
        return len(lines) / seconds, answers
