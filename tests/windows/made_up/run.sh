#!/usr/bin/env bash
# run.sh PREFIX PROGRAM DLL...   puts made-up system libraries into a Wine prefix of their own, makes Wine prefer
# them to its own, and runs the program there, with its exit status.

set -eu

prefix=$(realpath -m "$1")
program=$2
shift 2

here=$(realpath "${0%/*}")
"$here/../../../tools/wine.sh" make "$prefix"
names=""
for library in "$@"; do
    # What stands there may be a link into the package: it must go, not be written through.
    cp --remove-destination "$library" "$prefix/drive_c/windows/system32/"
    name=${library##*/}
    names+="${names:+,}${name%.dll}"
done

export WINEPREFIX=$prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;$names=n"
unset DISPLAY WAYLAND_DISPLAY
status=0
/usr/lib/wine/wine64 "$program" </dev/null || status=$?
/usr/lib/wine/wineserver -k -w </dev/null >/dev/null 2>&1 || true
exit "$status"
