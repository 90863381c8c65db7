#!/usr/bin/env bash
# Draws the diagram of each example study into docs/ (SVG by the command line, PNG by rsvg-convert).
set -euo pipefail
cd "$(dirname "$0")/.."
if ! command -v rsvg-convert >/dev/null; then
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update -q && DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -q librsvg2-bin
fi
cmake -S . -B build -G Ninja >/dev/null
cmake --build build --target tournesol-cli
mkdir -p docs/diagrammes
for etude in examples/*.json; do
  nom=$(basename "$etude" .json)
  ./build/src/tournesol-cli svg "$etude" -o "docs/diagrammes/$nom.svg"
  rsvg-convert -w 600 -h 600 "docs/diagrammes/$nom.svg" -o "docs/diagrammes/$nom.png"
done
