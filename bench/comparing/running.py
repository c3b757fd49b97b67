"""Runs peers as whole processes, and this program's services in a process that prints what they took."""

import contextlib
import os
import subprocess
import sys
import time


def peer(*command):
    """What a whole process took, in seconds, its output thrown away. Ends everything where it fails."""
    started = time.monotonic()
    process = subprocess.Popen(list(map(str, command)), stdout=subprocess.DEVNULL)
    try:
        _, status, usage = os.wait4(process.pid, 0)
    except BaseException:
        process.kill()
        process.wait()
        raise
    wall = time.monotonic() - started
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))} ended with {process.returncode}")
    return {"wall": wall, "cpu": usage.ru_utime + usage.ru_stime}


class Measure:
    """The program that does one thing with the real services."""

    def __init__(self, program, platform):
        self.program = program
        self.platform = platform

    def __call__(self, *arguments, home=None):
        """The numbers that it prints."""
        return numbers_in(self.lines(*arguments, home=home))

    def lines(self, *arguments, home=None):
        """The lines that it prints. Ends everything where it fails."""
        done = subprocess.run([self.program, *map(str, arguments)], capture_output=True, text=True, check=False,
                              env=self.environment(home))
        if done.returncode != 0:
            sys.exit(f"{self.program} {' '.join(map(str, arguments))} ended with {done.returncode}:\n{done.stderr}")
        return done.stdout.splitlines()

    def start(self, *command, home=None):
        """A process that is left running, with its output to read."""
        return subprocess.Popen(list(map(str, command)), stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                text=True, env=self.environment(home))

    def beside(self, name):
        """Another program of the same build."""
        return self.program.with_name(name)

    def environment(self, home=None):
        found = dict(os.environ, QT_QPA_PLATFORM=self.platform)
        if home is not None:
            found |= {"HOME": str(home), "XDG_CONFIG_HOME": f"{home}/.config", "XDG_DATA_HOME": f"{home}/.local/share"}
        return found


def busy_while_there(process):
    """The command of a program that is busy until this process is gone. The process is named to it: its own parent
    may be gone before it could ask who that is."""
    return ["sh", "-c", 'while kill -0 "$1"; do :; done', "busy", str(process)]


@contextlib.contextmanager
def busy_programs(count):
    """Other programs that would take all of the processors, as long as this lasts. They end by themselves
    where this process is killed and can't end them."""
    with contextlib.ExitStack() as started:
        for _ in range(count):
            program = started.enter_context(subprocess.Popen(busy_while_there(os.getpid()),
                                                             stderr=subprocess.DEVNULL))
            started.callback(program.kill)
        yield


def numbers_in(lines):
    """Of lines that are a name and a number."""
    numbers = {}
    for line in lines:
        name, _, number = line.rpartition(" ")
        try:
            numbers[name] = float(number)
        except ValueError:
            pass  # what the program says besides
    return numbers


def in_turn(rounds, *works):
    """Each work once a round, A B A B: a list of its results for each."""
    results = [[] for _ in works]
    for _ in range(rounds):
        for work, found in zip(works, results):
            found.append(work())
    return results


