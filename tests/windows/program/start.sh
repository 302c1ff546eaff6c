#!/usr/bin/env bash
# start.sh PREFIX   makes a Wine prefix with the sample installed, and starts its server, which stays.

set -eu
top=$(cd "${0%/*}/../../.." && pwd -P)
"$top/tools/wine.sh" start "$1"
"$top/tools/windows-sample.sh" "$top/machines/windows-sample" "$1"
