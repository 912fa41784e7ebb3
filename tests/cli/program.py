"""Runs the program as its users do. A test is called with PROGRAM and PROJECT_FOLDER."""

import csv
import fcntl
import os
import pathlib
import pty
import select
import signal
import struct
import subprocess
import sys
import termios

PROGRAM = os.path.abspath(sys.argv.pop(1))
PROJECT = pathlib.Path(sys.argv.pop(1)).resolve()
EXAMPLES = PROJECT / "examples"
PLANTS = str(EXAMPLES / "plants.csv")
sys.path.append(str(PROJECT / "tests"))


def run(*words, text=None, environment=None, **options):
    return subprocess.run([PROGRAM, *words], input=text, capture_output=True, encoding="utf-8", timeout=60,
                          env={**os.environ, **(environment or {})}, **options)


def on_a_terminal(*words, environment=None, columns=0):
    """What the program writes when standard output is a terminal."""
    leader, follower = pty.openpty()
    fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
    with subprocess.Popen([PROGRAM, *words], stdout=follower, stderr=subprocess.DEVNULL,
                          env={**os.environ, "TERM": "xterm", **(environment or {})}) as process:
        os.close(follower)
        written = b""
        while select.select([leader], [], [], 30)[0]:
            try:
                piece = os.read(leader, 65536)
            except OSError:
                break
            if not piece:
                break
            written += piece
        process.wait(timeout=30)
    os.close(leader)
    return written.decode("utf-8")


def interrupted(*words, text, when):
    """Its status, output and messages when Ctrl+C comes as soon as the line of progress has a word."""
    leader, follower = pty.openpty()
    with subprocess.Popen([PROGRAM, *words], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=follower,
                          env={**os.environ, "TERM": "xterm"}, encoding="utf-8") as process:
        os.close(follower)
        process.stdin.write(text)
        process.stdin.close()
        told = b""
        while when.encode() not in told and select.select([leader], [], [], 60)[0]:
            told += os.read(leader, 65536)
        process.send_signal(signal.SIGINT)
        written = process.stdout.read()
        status = process.wait(timeout=60)
    while select.select([leader], [], [], 0)[0]:
        try:
            told += os.read(leader, 65536)
        except OSError:
            break
    os.close(leader)
    return status, written, told.decode("utf-8")


def readings():
    """File, test, options, name of the result and its value elsewhere."""
    with open(PROJECT / "tests/reference/examples.csv", newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file))
