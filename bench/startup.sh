#!/usr/bin/env bash
# Times the start of Quillorne to its main window after login, on a demo organisation of
# 10,000 employees, on the embedded database and on a throwaway PostgreSQL server.
# Usage: bench/startup.sh [employees] [runs]
set -euo pipefail
cd "$(dirname "$0")/.."
employees=${1:-10000}
runs=${2:-10}
scripts/deps.sh --test
scripts/build.sh >/dev/null
source scripts/pg-throwaway.sh
work=$(mktemp -d /tmp/quillorne-bench.XXXXXX)
trap 'pg_throwaway_stop; rm -rf "$work"' EXIT
pg_throwaway_start >/dev/null

admin=build/src/admin/quillorne-admin
app=build/src/app/quillorne
export QT_QPA_PLATFORM=offscreen

measure() { # label, app arguments...
  local label=$1; shift
  local times=()
  for _ in $(seq "$runs"); do
    times+=("$("$app" "$@" --bench-startup | awk '/^startup_ms/ {print $2}')")
  done
  printf '%s\n' "${times[@]}" | sort -n | awk -v label="$label" -v n="$runs" \
    '{a[NR]=$1} END {printf "%-10s start to main window after login: median %d ms, min %d ms, max %d ms (%d runs)\n", label, a[int((NR+1)/2)], a[1], a[NR], n}'
}

# Embedded database
mkdir -p "$work/sqlite"
start=$(date +%s%N)
"$admin" create --settings "$work/sqlite/q.ini" --data "$work/sqlite" --demo "$employees" >/dev/null
echo "embedded: demo of $employees employees made in $(( ($(date +%s%N) - start) / 1000000 )) ms"
QUILLORNE_USER=sa QUILLORNE_PASSWORD= measure embedded --settings "$work/sqlite/q.ini" --data "$work/sqlite"

# PostgreSQL
mkdir -p "$work/pg"
cat > "$work/pg/q.ini" <<INI
[General]
_Server=127.0.0.1:$QUILLORNE_PG_PORT
_Database=personnel_bench
INI
start=$(date +%s%N)
QUILLORNE_PASSWORD=$QUILLORNE_PG_PASSWORD "$admin" create --settings "$work/pg/q.ini" \
  --data "$work/pg" --user "$QUILLORNE_PG_USER" --demo "$employees" >/dev/null
echo "postgres: demo of $employees employees made in $(( ($(date +%s%N) - start) / 1000000 )) ms"
QUILLORNE_USER=$QUILLORNE_PG_USER QUILLORNE_PASSWORD=$QUILLORNE_PG_PASSWORD \
  measure postgres --settings "$work/pg/q.ini" --data "$work/pg"
