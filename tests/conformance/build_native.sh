#!/usr/bin/env bash
# Builds build/native/bin/kvx_conformance, with which the Windows program is compared.

set -eu
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
. "$top/tools/build.sh"

build native kvx_conformance
