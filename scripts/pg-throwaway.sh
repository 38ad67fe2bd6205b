#!/usr/bin/env bash
# Starts a throwaway PostgreSQL server on 127.0.0.1 in a temporary folder, as a non-root user.
# Source it: it exports QUILLORNE_PG_HOST/PORT/USER/PASSWORD and defines pg_throwaway_stop.
pg_throwaway_start() {
  local bin
  bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
  if [ -z "$bin" ]; then echo "PostgreSQL server is not installed" >&2; return 1; fi
  PG_TMP=$(mktemp -d /tmp/quillorne-pg.XXXXXX)
  local as=()
  if [ "$(id -u)" = 0 ]; then
    id quillorne-pg >/dev/null 2>&1 || useradd --system --no-create-home --shell /usr/sbin/nologin quillorne-pg
    chown quillorne-pg "$PG_TMP"
    as=(runuser -u quillorne-pg --)
  fi
  PG_AS=("${as[@]}")
  PG_BIN=$bin
  local pw
  pw=$(head -c 18 /dev/urandom | od -An -tx1 | tr -d ' \n')
  echo "$pw" > "$PG_TMP/pw"
  chmod 600 "$PG_TMP/pw"
  [ "$(id -u)" = 0 ] && chown quillorne-pg "$PG_TMP/pw"
  "${as[@]}" "$bin/initdb" -D "$PG_TMP/data" -U qadmin --auth=scram-sha-256 --pwfile="$PG_TMP/pw" -E UTF8 --locale=C.UTF-8 >"$PG_TMP/initdb.log" 2>&1 \
    || { cat "$PG_TMP/initdb.log" >&2; return 1; }
  # A port that looks free can be taken by another server starting at the same moment, so a
  # failed start moves on to the next port.
  local port="" p started=""
  for p in $(seq 55432 55532); do
    if (exec 3<>"/dev/tcp/127.0.0.1/$p") 2>/dev/null; then continue; fi
    rm -f "$PG_TMP/server.log"
    if "${as[@]}" "$bin/pg_ctl" -D "$PG_TMP/data" -l "$PG_TMP/server.log" -w -t 60 \
      -o "-p $p -k $PG_TMP -c listen_addresses=127.0.0.1 -c fsync=off -c synchronous_commit=off -c full_page_writes=off -c max_connections=200" start >/dev/null; then
      port=$p; started=1; break
    fi
    grep -q "could not bind\|could not create any TCP/IP sockets" "$PG_TMP/server.log" || break
  done
  [ -n "$started" ] || { echo "PostgreSQL could not start" >&2; cat "$PG_TMP/server.log" >&2; return 1; }
  export QUILLORNE_PG_HOST=127.0.0.1 QUILLORNE_PG_PORT=$port QUILLORNE_PG_USER=qadmin QUILLORNE_PG_PASSWORD=$pw
  echo "PostgreSQL $("$bin/postgres" --version | awk '{print $3}') running on 127.0.0.1:$port"
}

pg_throwaway_stop() {
  if [ -n "${PG_TMP:-}" ] && [ -d "$PG_TMP/data" ]; then
    "${PG_AS[@]}" "$PG_BIN/pg_ctl" -D "$PG_TMP/data" -m immediate stop >/dev/null 2>&1 || true
    rm -rf "$PG_TMP"
  fi
}
