#!/usr/bin/env bash
# Sets everything up and passes the tests: installs the packages, builds with warnings as
# errors, starts a throw-away PostgreSQL server for the store's tests on a server, runs the tests,
# then builds and runs them once more under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
export QT_QPA_PLATFORM=offscreen
jobs=$(nproc)

# A throw-away PostgreSQL cluster for the tests of the store on a server: made in a temporary
# folder, on a loopback port, and removed at the end whatever happens.
serveur=$(mktemp -d "${TMPDIR:-/tmp}/tournesol-serveur.XXXXXX")
trap 'bash scripts/serveur-essai.sh detruire "$serveur"' EXIT
TOURNESOL_SERVEUR_ESSAI=$(bash scripts/serveur-essai.sh demarrer "$serveur")
export TOURNESOL_SERVEUR_ESSAI
export TOURNESOL_SERVEUR_ARRET="bash $PWD/scripts/serveur-essai.sh arreter $serveur"
export TOURNESOL_SERVEUR_REPRISE="bash $PWD/scripts/serveur-essai.sh reprendre $serveur"

cmake -S . -B build -G Ninja -DTOURNESOL_WERROR=ON
cmake --build build -j "$jobs"
ctest --test-dir build --output-on-failure --timeout 600 -j "$jobs"

cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTOURNESOL_WERROR=ON \
  -DTOURNESOL_SANITIZE=ON -DTOURNESOL_BENCH=OFF
cmake --build build-asan -j "$jobs"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build-asan --output-on-failure --timeout 900 -j "$jobs"
