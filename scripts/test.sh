#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests by ctest.
# Usage: scripts/test.sh [preset]   release (default), debug, asan or tsan.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset="${1:-release}"
scripts/deps.sh test
cmake --preset "$preset" -DVELORIA_TESTS=ON
cmake --build --preset "$preset"
ctest --preset "$preset" --output-on-failure
