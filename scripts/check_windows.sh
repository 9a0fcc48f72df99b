#!/usr/bin/env bash
# Checks that the Windows side compiles: every file of src/base/windows and src/platform/windows is parsed by the MinGW
# cross compiler with all warnings as errors. Nothing is linked and nothing is written.
# Usage: scripts/check_windows.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

compiler=x86_64-w64-mingw32-g++
if ! command -v "$compiler" >/dev/null 2>&1; then
  echo "check_windows: $compiler is missing; scripts/deps.sh installs it" >&2
  exit 1
fi

failed=0
count=0
for file in src/base/windows/*.cpp src/platform/windows/*.cpp; do
  echo "check_windows: $file"
  "$compiler" -std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -Isrc "$file" || failed=1
  count=$((count + 1))
done

if [ "$failed" -ne 0 ]; then
  echo "check_windows: the Windows side does not compile" >&2
  exit 1
fi
echo "check_windows: all $count files compile"
