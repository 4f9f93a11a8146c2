#!/usr/bin/env bash
# Makes sure the Debian packages Orvana builds and tests with are installed.
# As root it installs what is missing; otherwise it prints the apt-get line.
set -euo pipefail

packages=(
  cmake g++ ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools libgl-dev
  libfftw3-dev libplist-dev libliquid-dev libhwy-dev libeigen3-dev
  libgtest-dev
  python3 python3-numpy python3-scipy
  xvfb xauth x11-utils fonts-urw-base35
  qt6-svg-dev
  help2man desktop-file-utils appstream libxml2-utils shared-mime-info
  dpkg-dev file man-db lintian
  clang-format
  iverilog ghdl
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

line="apt-get update && DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
  echo "Orvana needs these Debian packages: ${missing[*]}" >&2
  echo "Install them as root with:" >&2
  echo "  $line" >&2
  exit 1
fi
echo "Installing: ${missing[*]}"
apt-get update -q
DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
