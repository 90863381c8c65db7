#!/usr/bin/env bash
# Sets everything up and opens Tournesol on its bundled example study.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
cmake -S . -B build -G Ninja
cmake --build build -j "$(nproc)" --target tournesol tournesol-cli
# Without arguments: the bundled example study, in the working window.
[ $# -eq 0 ] && set -- examples/champagnier-grande-ile-225kV.json
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "No display found: running Tournesol in a virtual one (xvfb-run)." >&2
  exec xvfb-run -a ./build/src/tournesol "$@"
fi
exec ./build/src/tournesol "$@"
