"""[user] under Wine: the name by the environment, the rights by a restricted token."""

from dataclasses import dataclass

from machine_text import Staging
from scenario_file import Mistake
from wine_staging import Tools


@dataclass
class User:
    """`name` is None where Wine's own will do."""
    name: str | None = None
    administrator: bool = True


def user_of(staging: Staging) -> User:
    """Who runs the program, as [user] says."""
    user = User()
    for line in staging.section("user"):
        key, _, value = (part.strip() for part in line.partition("="))
        if key == "name":
            user.name = value.rpartition("\\")[2]
        elif key == "administrator" and value in ("yes", "no"):
            user.administrator = value == "yes"
        else:
            raise Mistake(f"[user]: Wine cannot be made to answer '{line}'")
    return user


def launcher(user: User, tools: Tools) -> list[str]:
    """What stands before the program: nothing for an administrator, as whom everything under Wine runs."""
    return [] if user.administrator else [str(tools.path("launcher.exe"))]


def environment_of(user: User) -> dict[str, str]:
    return {"USER": user.name} if user.name is not None else {}
