#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests by ctest.
# Usage: scripts/test.sh [preset]   release (default), debug, asan or tsan.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset="${1:-release}"
say() { printf 'test: %s\n' "$*"; }

scripts/deps.sh test
say "building the $preset preset in build/$preset"
cmake --preset "$preset" -DVELORIA_TESTS=ON
cmake --build --preset "$preset"
say "running all tests"
ctest --preset "$preset" --output-on-failure -j "$(nproc)"
