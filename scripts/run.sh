#!/usr/bin/env bash
# Installs what is missing, builds Orvana and starts it.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$here/scripts/deps.sh"
build="$here/build/release"
cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DORVANA_BUILD_TESTS=OFF
cmake --build "$build" --parallel
exec "$build/app/orvana" "$@"
