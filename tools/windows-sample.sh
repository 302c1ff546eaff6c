#!/usr/bin/env bash
# Installs a sample in a Wine prefix, unless the prefix holds it as it is:
#
#   windows-sample.sh SAMPLE PREFIX
#
# SAMPLE is a folder with sample.reg (for `reg import`), files.txt (files to create, one a line) and contents/
# (files with something in them, by their paths on drive C:).

set -eu
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
sample=$1
prefix=$2
drive=$prefix/drive_c

fingerprint() {
    (cd "$sample" && find . -type f -print0 | sort -z | xargs -0 cksum)
}

# create WINDOWS_PATH: makes the folders, and the file unless it is there
create() {
    local path=${1#C:} folder
    path=${path//\\//}
    folder=$drive${path%/*}
    mkdir -p "$folder"
    [ -e "$drive$path" ] || : >"$drive$path"
    echo "$path" >>"$prefix/sample.files"
}

remove_old() {
    [ -e "$prefix/sample.files" ] || return 0
    while read -r path; do
        rm -f "$drive$path"
    done <"$prefix/sample.files"
    rm "$prefix/sample.files"
}

import() {
    "$top/tools/wine.sh" patiently "$prefix" reg import "$1" </dev/null >/dev/null 2>&1 9>&- && return
    echo "windows-sample.sh: cannot import $1 into $prefix" >&2
    return 1
}

remove_keys() {
    printf 'REGEDIT4\r\n\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvel]\r\n' >"$prefix/remove.reg"
    import "$prefix/remove.reg"
}

"$top/tools/wine.sh" make "$prefix"
(
    flock 9
    now=$(fingerprint)
    [ "$now" = "$(cat "$prefix/sample.stamp" 2>/dev/null)" ] && exit
    rm -f "$prefix/sample.stamp"
    remove_old
    remove_keys
    import "$sample/sample.reg"
    while IFS= read -r line; do
        [ -z "$line" ] || create "${line%$'\r'}"
    done <"$sample/files.txt"
    cp -R "$sample/contents/." "$drive/"
    echo "$now" >"$prefix/sample.stamp"
) 9>"$prefix.lock"
