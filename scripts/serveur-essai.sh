#!/usr/bin/env bash
# A throw-away PostgreSQL cluster for the tests of the study base, in a folder of its own, on a
# loopback port, with no password (trust, loopback only).
#   serveur-essai.sh demarrer DIR   makes and starts the cluster, prints its base's address
#   serveur-essai.sh arreter DIR    stops it (the folder stays)
#   serveur-essai.sh reprendre DIR  starts it again on the same port
#   serveur-essai.sh detruire DIR   stops it and removes the folder
# Run as root, the server runs as the user "postgres" (it refuses root).
set -euo pipefail
action=${1:?action}
dir=${2:?folder}

bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -1 || true)
[ -n "$bin" ] || bin=$(dirname "$(command -v initdb)")

comme() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u postgres -- "$@"
  else
    "$@"
  fi
}

case "$action" in
demarrer)
  mkdir -p "$dir"
  [ "$(id -u)" -eq 0 ] && chown postgres: "$dir"
  port=""
  for p in $(seq 55432 55532); do
    if ! (echo >"/dev/tcp/127.0.0.1/$p") 2>/dev/null; then
      port=$p
      break
    fi
  done
  [ -n "$port" ] || { echo "serveur-essai: no free port" >&2; exit 1; }
  echo "$port" >"$dir/port"
  comme "$bin/initdb" -D "$dir/donnees" -U tournesol --auth=trust -E UTF8 --locale=C.UTF-8 \
    >"$dir/initdb.log" 2>&1 || { cat "$dir/initdb.log" >&2; exit 1; }
  "$0" reprendre "$dir"
  comme "$bin/psql" -q -h 127.0.0.1 -p "$port" -U tournesol -d postgres \
    -c 'CREATE DATABASE tournesol' >/dev/null
  echo "postgresql://tournesol@127.0.0.1:$port/tournesol"
  ;;
reprendre)
  port=$(cat "$dir/port")
  comme "$bin/pg_ctl" -D "$dir/donnees" -l "$dir/serveur.log" -w -t 60 \
    -o "-p $port -k $dir -c listen_addresses=127.0.0.1 -c fsync=off -c max_connections=50" \
    start >/dev/null
  ;;
arreter)
  comme "$bin/pg_ctl" -D "$dir/donnees" -m fast -w -t 60 stop >/dev/null
  ;;
detruire)
  if [ -f "$dir/donnees/postmaster.pid" ]; then
    comme "$bin/pg_ctl" -D "$dir/donnees" -m immediate -w -t 60 stop >/dev/null 2>&1 || true
  fi
  rm -rf "$dir"
  ;;
*)
  echo "serveur-essai: unknown action $action" >&2
  exit 2
  ;;
esac
