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
  # No screen to show a window on: the example study goes through the command line instead.
  etude="${1:-examples/champagnier-grande-ile-225kV.json}"
  sortie="${TMPDIR:-/tmp}/tournesol"
  mkdir -p "$sortie"
  nom="$(basename "$etude" .json)"
  echo "No display found: the window cannot be shown. The study $etude goes through tournesol-cli instead."
  ./build/src/tournesol-cli report "$etude" -o "$sortie/$nom.pdf"
  ./build/src/tournesol-cli svg "$etude" -o "$sortie/$nom.svg"
  echo "Report:  $sortie/$nom.pdf"
  echo "Diagram: $sortie/$nom.svg"
  echo "Run this script again from a desktop session to open the window."
  exit 0
fi
exec ./build/src/tournesol "$@"
