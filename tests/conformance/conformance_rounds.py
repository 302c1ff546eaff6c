"""The rounds of questions: which machine is asked what."""

import tempfile
from dataclasses import dataclass

SCRATCH = r"C:\scratch"


@dataclass(frozen=True)
class Round:
    """`machine` names a description in tests/conformance/machines; `stages`, what is made real under Wine."""
    name: str
    machine: str
    stages: frozenset[str]
    sets: tuple[str, ...]

    @property
    def current_directory(self) -> str:
        """Where the program runs, but for the number in the temporary folder's name."""
        place = SCRATCH if "volumes" in self.stages else "Z:" + tempfile.gettempdir().replace("/", "\\")
        return place + r"\kvxinfo-scenario\here"


def round_of(name: str, stages: str, sets: str) -> Round:
    return Round(name, name, frozenset(stages.split()), tuple(sets.split()))


ACCOUNTS = "domain localaccounts domainaccounts quotas"

ROUNDS = [
    round_of("facts", "registry services versions user accounts",
             "commandline errors quotatexts sids registry paths quotafiles calls system device configurator "
             "cluster domain localaccounts quotas log"),
    round_of("nothing", "registry services accounts", "device configurator cluster quotas quotafiles"),
    round_of("refused", "registry services accounts cluster",
             "device configurator cluster domain localaccounts quotas"),
    round_of("domain", "registry services versions accounts cluster",
             ACCOUNTS + " cluster device configurator"),
    round_of("unreachable", "registry services versions accounts cluster",
             ACCOUNTS + " cluster device configurator"),
    round_of("controller", "registry services versions accounts", ACCOUNTS + " device configurator"),
    round_of("halfway", "registry accounts", ACCOUNTS),
    round_of("volumes", "registry volumes", "volumes"),
]
