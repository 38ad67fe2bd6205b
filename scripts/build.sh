#!/usr/bin/env bash
# Configures and builds Quillorne into build/. Uses ccache when it is installed, so that a
# rebuild in another checkout of the same tree reuses what was compiled (the debug information
# would otherwise tie each object to the folder it was built in).
set -euo pipefail
cd "$(dirname "$0")/.."
launcher=()
if command -v ccache >/dev/null 2>&1; then
  export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
  launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" >/dev/null
cmake --build build -j"$(nproc)"
