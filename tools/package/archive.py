"""ZIP archives whose bytes depend on nothing but their contents and one moment."""

import datetime
import pathlib
import zipfile

EARLIEST = (1980, 1, 1, 0, 0, 0)
FILE_MODE = 0o100644
MADE_ON_UNIX = 3


def write_archive(path: pathlib.Path, files: dict[str, bytes], moment: datetime.datetime) -> None:
    """Writes `files`, contents by name, in the order of their names, as old as `moment` (UTC), or
    as a ZIP can be."""
    with zipfile.ZipFile(path, "w") as archive:
        for name in sorted(files):
            entry = zipfile.ZipInfo(name, max(moment.timetuple()[:6], EARLIEST))
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = MADE_ON_UNIX
            entry.external_attr = FILE_MODE << 16
            archive.writestr(entry, files[name])
