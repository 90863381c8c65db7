#!/usr/bin/env bash
# Sets everything up and opens Tournesol on its bundled example study.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
cmake -S . -B build -G Ninja
cmake --build build -j "$(nproc)" --target tournesol tournesol-cli
# Without arguments the opening dialog comes up on the base bd1.mdb of this folder, made on first
# use with the bundled example study (CHAMPAGNIER - GRANDE-ILE, PD3A n° 1) in it.
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "No display found: running Tournesol in a virtual one (xvfb-run)." >&2
  exec xvfb-run -a ./build/src/tournesol "$@"
fi
exec ./build/src/tournesol "$@"
