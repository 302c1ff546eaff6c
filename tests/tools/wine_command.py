"""Commands under Wine, of those that stage a machine and those that ask what Wine has to say: with patience.

Now and then a program cannot be started; tools/wine.sh says why. What is run here is tried again, so it must
be something that may be repeated.
"""

import subprocess
import tempfile
import time
from pathlib import Path

from scenario_file import Mistake
from scenario_run import ROOT

WINE = ROOT / "tools" / "wine.sh"
PAUSES = (1, 3)  # seconds
SECONDS = 60

# What can go wrong with a command or a file, for those who go on without.
TROUBLE = (Mistake, OSError, subprocess.SubprocessError)


def output_of(prefix: Path, *command: str | Path) -> str:
    """What a command of Windows writes on standard output; raises Mistake when it fails again and again."""
    return patiently("run", prefix, *command)


def patiently(action: str, prefix: Path, *words: str | Path) -> str:
    """Output of an action of tools/wine.sh; raises Mistake when it fails again and again."""
    for pause in (*PAUSES, None):
        failure, output = attempt(action, prefix, *words)
        if not failure:
            return output
        if pause is not None:
            time.sleep(pause)
    raise Mistake(f"{' '.join(map(str, (action, prefix, *words)))}: {failure}".rstrip())


def attempt(action: str, prefix: Path, *words: str | Path) -> tuple[str, str]:
    """How it failed, and what it said then; and its output. No pipes: a server that begins keeps them."""
    with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
        failure = ""
        try:
            status = subprocess.run([WINE, action, prefix, *words], stdin=subprocess.DEVNULL, stdout=output,
                                    stderr=errors, timeout=SECONDS).returncode
            failure = f"exit status {status}" if status else ""
        except subprocess.TimeoutExpired:
            failure = f"not ended after {SECONDS} s"
        written, said = (text_of(file) for file in (output, errors))
        return (failure and f"{failure}: {written}{said}"), written


def text_of(file) -> str:
    file.seek(0)
    return file.read().decode(errors="replace")
