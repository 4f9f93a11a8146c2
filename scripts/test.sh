#!/usr/bin/env bash
# Installs what is missing, builds Orvana with warnings as errors under
# AddressSanitizer and UBSan, and runs the whole test suite offscreen.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$here/scripts/deps.sh"
# Unformatted C++ fails the run before anything is built.
bash "$here/scripts/format-check.sh"
build="$here/build/test"
cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DORVANA_STRICT=ON -DORVANA_SANITIZE=ON -DORVANA_BUILD_BENCH=OFF
cmake --build "$build" --parallel
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=0
cd "$build"
ctest --output-on-failure --parallel "$(nproc)" --timeout 600
