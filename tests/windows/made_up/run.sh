#!/usr/bin/env bash
# run.sh PREFIX PROGRAM DLL...   puts made-up system libraries into a Wine prefix of their own, makes Wine prefer
# them to its own, and runs the program there, with its exit status.

set -eu

prefix=$(realpath -m "$1")
program=$2
shift 2

top=$(cd "${0%/*}/../../.." && pwd -P)
wine=$top/tools/wine.sh
"$wine" make "$prefix"
names=""
for library in "$@"; do
    # What stands there may be a link into the package: it must go, not be written through.
    cp --remove-destination "$library" "$prefix/drive_c/windows/system32/"
    name=${library##*/}
    names+="${names:+,}${name%.dll}"
done

trap '"$wine" stop "$prefix" </dev/null >/dev/null 2>&1 || true' EXIT
"$wine" start "$prefix"
WINEDLLOVERRIDES="$names=n" "$wine" run "$prefix" "$program" </dev/null
