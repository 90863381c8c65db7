#!/usr/bin/env bash
# Sets everything up and passes the tests: installs the packages, builds with warnings as
# errors, runs the tests, then builds and runs them once more under AddressSanitizer and
# UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

export CCACHE_DIR="${CCACHE_DIR:-$PWD/.ccache}"
export QT_QPA_PLATFORM=offscreen
jobs=$(nproc)

cmake -S . -B build -G Ninja -DTOURNESOL_WERROR=ON
cmake --build build -j "$jobs"
ctest --test-dir build --output-on-failure --timeout 600 -j "$jobs"

cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTOURNESOL_WERROR=ON \
  -DTOURNESOL_SANITIZE=ON -DTOURNESOL_BENCH=OFF
cmake --build build-asan -j "$jobs"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build-asan --output-on-failure --timeout 900 -j "$jobs"
