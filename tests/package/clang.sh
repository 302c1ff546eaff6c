#!/usr/bin/env bash
# Compiles the sources of the Windows program by clang, all warnings being errors:
#
#   clang.sh SOURCES

set -eu
cd "$1"
cmake --preset windows-clang >/dev/null
cmake --build --preset windows-clang
