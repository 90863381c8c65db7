#!/usr/bin/env bash
# Installs every package the build, the tests and the tool need, from Debian.
set -euo pipefail
packages=(
  build-essential cmake ninja-build ccache pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite libqt6sql6-psql libgl-dev
  postgresql postgresql-client
  libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev
  clang-format xvfb xauth poppler-utils fonts-liberation
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO=sudo
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -q
  $SUDO apt-get install -y -q --no-install-recommends "${missing[@]}"
fi
