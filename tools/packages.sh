# shellcheck shell=bash
# What a machine needs, installed where it is missing. To be sourced.
#
#     need cmake cmake "configures the build"     # a command (or a path) that must be there, its package, why
#     install_missing                             # installs what is missing, or says what is and ends with 1

missing=()

need() {
    case $1 in
        /*) [ -e "$1" ] && return ;;
        *) command -v "$1" >/dev/null && return ;;
    esac
    missing+=("$2")
    echo "missing: $2 ($3)" >&2
}

need_native_build() {
    need cmake cmake "configures the build"
    need ninja ninja-build "runs the build"
    need g++ g++ "compiles"
}

need_windows_build() {
    need_native_build
    need x86_64-w64-mingw32-g++-posix g++-mingw-w64-x86-64 "compiles for Windows"
    need /usr/lib/wine/wine64 wine64 "runs Windows programs"
    need wine wine "its commands and libraries"
}

install_missing() {
    [ ${#missing[@]} -gt 0 ] || return 0
    if ! command -v apt-get >/dev/null; then
        echo "This machine has no apt-get. Install what these Debian packages hold: ${missing[*]}" >&2
        exit 1
    fi
    local as_root=() output
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Install them as root: apt-get install --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "installing: ${missing[*]}" >&2
    # The package lists are fetched only where the ones at hand do not do.
    if ! output=$(apt_install 2>&1); then
        "${as_root[@]}" apt-get update >/dev/null
        if ! output=$(apt_install 2>&1); then
            echo "$output" >&2
            exit 1
        fi
    fi
    missing=()
}

apt_install() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}
