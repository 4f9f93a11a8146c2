#!/usr/bin/env bash
# Lists the C++ files that clang-format (with the committed .clang-format)
# would change, and fails when there is any. Run from anywhere in the tree.
set -euo pipefail
cd "$(dirname "$0")/.."

command -v clang-format >/dev/null || { echo "format-check: clang-format is not installed" >&2; exit 2; }

unformatted=()
while IFS= read -r -d '' file; do
    if ! clang-format --style=file --dry-run --Werror "$file" >/dev/null 2>&1; then
        unformatted+=("$file")
    fi
done < <(git ls-files -z -- 'src/*.cpp' 'src/*.h' 'app/*.cpp' 'app/*.h' 'tests/*.cpp' 'tests/*.h' \
             'bench/*.cpp' 'bench/*.h' 'tools/*.cpp' 'tools/*.h' 'fuzz/*.cpp' 'fuzz/*.h')

if ((${#unformatted[@]})); then
    echo "format-check: ${#unformatted[@]} file(s) not formatted (run clang-format -i on them):"
    printf '  %s\n' "${unformatted[@]}"
    exit 1
fi
echo "format-check: every file is formatted"
