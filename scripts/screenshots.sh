#!/usr/bin/env bash
# Renders every window of the program, with the sample designs, offscreen and
# at fixed sizes, into docs/images (the pictures of the manual and README).
# Uses the test build (orvana-selftest --tour) over a fresh library and settings.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$here/build/test"
cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DORVANA_STRICT=ON -DORVANA_SANITIZE=ON -DORVANA_BUILD_BENCH=OFF
cmake --build "$build" --target orvana-selftest orvana_samples orvana_fft_wisdom
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 \
  XDG_CONFIG_HOME="$scratch/config" XDG_CACHE_HOME="$scratch/cache" XDG_DATA_HOME="$scratch/data" \
  "$build/tests/orvana-selftest" --tour "$scratch/images" --library "$scratch/library" 2>/dev/null
mkdir -p "$here/docs/images"
cp "$scratch"/images/*.png "$here/docs/images/"
ls "$here/docs/images"
