#!/usr/bin/env bash
# Installs, builds and runs the whole suite under CTest twice: on the embedded database and on
# a throwaway PostgreSQL server. Fails if PostgreSQL cannot start.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh --test
scripts/build.sh
source scripts/pg-throwaway.sh
trap pg_throwaway_stop EXIT
pg_throwaway_start

status=0
echo "== embedded database (SQLite)"
QUILLORNE_TEST_BACKEND=sqlite ctest --test-dir build --output-on-failure -j2 || status=1
echo "== PostgreSQL"
QUILLORNE_TEST_BACKEND=postgres ctest --test-dir build --output-on-failure -j2 || status=1
exit $status
