#!/usr/bin/env bash
# Installs, builds and starts Quillorne on its embedded database. The first start creates a
# demo installation (its own settings and data folder) with a demo organisation. Without a
# display it runs under Xvfb, signs in as "sa" and saves a picture of the main window.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
scripts/build.sh
demo="${XDG_DATA_HOME:-$HOME/.local/share}/Quillorne/demo"
mkdir -p "$demo"
args=(--settings "$demo/quillorne.ini" --data "$demo" --demo 250)
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  shot="$demo/main-window.png"
  xvfb-run -a -s "-screen 0 1280x800x24" build/src/app/quillorne "${args[@]}" --screenshot "$shot" "$@"
  echo "The main window after login: $shot"
else
  exec build/src/app/quillorne "${args[@]}" "$@"
fi
