#!/usr/bin/env bash
# A Wine prefix, that is, a small Windows of its own in a folder.
#
#   wine.sh make PREFIX                  makes it, where it is not there yet
#   wine.sh warm PREFIX                  starts its server, which ends by itself soon after the last program
#   wine.sh start PREFIX                 makes it and starts its server anew, which stays until "stop"
#   wine.sh stop PREFIX                  ends its server, with all that runs there
#   wine.sh run PREFIX PROGRAM ARG...    runs a program in it, with its exit status
#   wine.sh patiently PREFIX PROGRAM ARG...   the same, up to three times until it succeeds
#
# WINEDLLOVERRIDES in the environment is added to what is set here.

set -u

action=$1
prefix=$(realpath -m "$2")
shift 2

wine=/usr/lib/wine/wine64
server=/usr/lib/wine/wineserver
export WINEPREFIX=$prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"
unset DISPLAY WAYLAND_DISPLAY

# Wine needs a certain address in each process. One time in a thousand Linux has put the heap there by chance
# ("failed to map the shared user data"), unless it is told to leave chance out; not every container allows it.
without_chance=()
if setarch -R true 2>/dev/null; then
    without_chance=(setarch -R)
fi

# Most of a new prefix are copies of the package's own files: 690 of 720 MB. Links do as well.
slim() {
    local package file copy
    for package in /usr/lib/*/wine/x86_64-windows /usr/lib/*/wine/i386-windows; do
        for file in "$package"/*; do
            for copy in "$1"/drive_c/windows/{system32,syswow64}/{,drivers/}"${file##*/}"; do
                [ -f "$copy" ] && [ ! -L "$copy" ] && cmp -s "$file" "$copy" && ln -sf "$file" "$copy"
            done
        done
    done
}

make_prefix() {
    [ -e "$prefix/made" ] && return
    mkdir -p "${prefix%/*}"
    (
        flock 9
        [ -e "$prefix/made" ] && exit
        rm -rf "$prefix"
        if ! "${without_chance[@]}" "$wine" wineboot -i </dev/null >/dev/null 2>&1 9>&-; then
            echo "wineboot cannot make $prefix" >&2
            exit 1
        fi
        "$server" -k -w
        slim "$prefix"
        touch "$prefix/made"
    ) 9>"$prefix.lock"
}

patiently() {
    local pause
    for pause in 1 3; do
        "${without_chance[@]}" "$wine" "$@" && return
        sleep "$pause"
    done
    "${without_chance[@]}" "$wine" "$@"
}

# A prefix's first program starts its server, which keeps the streams that it got: they must not be pipes.
warm() {
    patiently cmd /c exit </dev/null >/dev/null 2>&1
}

# One that a run left behind which was ended by force would not let another begin.
start_server() {
    "$server" -k -w </dev/null >/dev/null 2>&1
    "${without_chance[@]}" "$server" -p </dev/null >/dev/null 2>&1
}

case $action in
    make) make_prefix ;;
    warm) warm ;;
    start) make_prefix && start_server && warm ;;
    stop) "$server" -k -w ;;
    run) exec "${without_chance[@]}" "$wine" "$@" ;;
    patiently) patiently "$@" ;;
    *)
        echo "wine.sh: unknown action: $action" >&2
        exit 2
        ;;
esac
