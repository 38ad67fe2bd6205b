#!/usr/bin/env bash
# Builds Quillorne and makes its Debian package, build/package/quillorne_<version>_amd64.deb,
# whose dependencies are worked out from what the programs use. Install it with
#   sudo apt-get install ./build/package/quillorne_<version>_amd64.deb
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
scripts/build.sh
cpack --config build/CPackConfig.cmake -B build/package >/dev/null
ls build/package/quillorne_*_amd64.deb
