#!/usr/bin/env bash
# Installs what building, running and testing Quillorne needs on Debian 12.
# Usage: scripts/deps.sh [--test]   (--test adds the PostgreSQL server)
# postgresql-client: pg_dump and pg_restore back up and restore a PostgreSQL database.
set -euo pipefail
SUDO=""
if [ "$(id -u)" != 0 ]; then SUDO="sudo"; fi
pkgs=(build-essential cmake ninja-build qt6-base-dev libqt6sql6-sqlite libqt6sql6-psql
      libsodium-dev libsqlite3-dev libquazip1-qt6-dev zlib1g-dev ccache xvfb xauth
      fonts-dejavu-core python3-openpyxl postgresql-client)
# dpkg-dev makes the Debian package (scripts/package.sh); the tests validate the installed
# desktop entry and metainfo with the desktop's own tools.
pkgs+=(dpkg-dev)
if [ "${1:-}" = "--test" ]; then
  pkgs+=(postgresql desktop-file-utils appstream)
fi
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -q
  $SUDO apt-get install -y -q --no-install-recommends "${missing[@]}"
fi
