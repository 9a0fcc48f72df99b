#!/usr/bin/env bash
# Runs a copy of scripts/deps.sh in a folder of its own, with stand-ins for the package tools: nothing is installed or
# fetched. Usage: deps_test.sh DEPS-SCRIPT
set -euo pipefail

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/tree/scripts" "$work/bin"
cp "$1" "$work/tree/scripts/deps.sh"

fail() {
  echo "FAILED: $*" >&2
  cat "$work/said" >&2
  exit 1
}

# stand_in NAME: a command with the body that is read.
stand_in() {
  { echo '#!/bin/sh' && cat; } >"$work/bin/$1"
  chmod +x "$work/bin/$1"
}

# Every package is installed, and no header of the system's is in the way.
stand_in dpkg-query <<<'printf installed'
stand_in ls <<<'exit 2'

# run_deps: its words in $work/said, its status in $status.
run_deps() {
  rm -rf "$work/tree/.deps"
  status=0
  PATH="$work/bin:$PATH" "$work/tree/scripts/deps.sh" run >"$work/said" 2>&1 || status=$?
}

# expect_failure WORDS: ends with 1 and with a line that says what failed, and leaves no header behind.
expect_failure() {
  run_deps
  [ "$status" -eq 1 ] || fail "status $status, not 1"
  tail -n 1 "$work/said" | grep -qF "deps: minimp3 1.0.0$1" || fail "the last line does not say \"$1\""
  [ ! -e "$work/tree/.deps/minimp3/minimp3.h" ] || fail "a header was left"
  echo "passed:$1"
}

# shellcheck disable=SC2016  # the stand-ins see their own arguments
stand_in npm <<<'[ "$1" = config ] && echo https://registry.example/ && exit; exit 1'
expect_failure " could not be fetched from the npm registry (https://registry.example/)"

# shellcheck disable=SC2016
stand_in npm <<<'[ "$1" = config ] && exit 1; echo "npm ERR! network" >&2; exit 7'
expect_failure " could not be fetched from the npm registry"
grep -qF 'npm ERR! network' "$work/said" || fail "npm's own reason is not shown"

stand_in npm <<<'exit 0'
expect_failure " could not be fetched: npm left no minimp3-1.0.0.tgz"

stand_in npm <<<'echo other >minimp3-1.0.0.tgz'
expect_failure ": the package's digest is not the pinned one"

stand_in openssl <<<'exit 1'
expect_failure ": its digest could not be taken"

# A header that is there is not fetched again.
stand_in npm <<<'exit 1'
rm -rf "$work/tree/.deps"
mkdir -p "$work/tree/.deps/minimp3"
touch "$work/tree/.deps/minimp3/minimp3.h"
PATH="$work/bin:$PATH" "$work/tree/scripts/deps.sh" run >"$work/said" 2>&1 || fail "a header that is there is fetched"
grep -qF 'deps: done' "$work/said" || fail "the end is not said"
echo "passed"
