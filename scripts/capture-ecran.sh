#!/usr/bin/env bash
# Takes the screenshots, on a laptop's screen of 1366 x 768, of the working window on an example
# study (docs/fenetre-principale.png)
# and of its relay's panel (docs/panneau-relais.png),
# and prints how long the start took, from the program's start to the first drawn diagram.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
cmake -S . -B build -G Ninja >/dev/null
cmake --build build --target tournesol
etude="${1:-examples/champagnier-grande-ile-225kV.json}"
mkdir -p docs
# A virtual display, so that the window is drawn as on a desktop.
xvfb-run -a -s "-screen 0 1366x768x24" ./build/src/tournesol --capture docs/fenetre-principale.png "$etude"
# The relay's panel, opened by "set" from the working window.
xvfb-run -a -s "-screen 0 1366x768x24" ./build/src/tournesol --capture-relais docs/panneau-relais.png "$etude"
