#!/usr/bin/env bash
# Who may know whom, beside what the compiler itself refuses (cmake/rooms.cmake). Each rule: the
# files that it holds for, and an expression that none of their lines may match.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/files.sh

# rule EXPLANATION EXPRESSION < LIST: prints the explanation and the lines that match.
rule() {
  local found
  found=$(matches "$2")
  [ -z "$found" ] || printf '%s:\n%s\n' "$1" "$found"
}

# only PATTERN, without PATTERN: filters of a list of files.
only() { source_files | grep -E "$1" || true; }
without() { source_files | grep -vE "$1" || true; }

qt='#include *[<"]Q|\bQ[A-Z][a-z]\w*|\bQt::|\bQ_[A-Z]+\b'
clocks='sleep_for|sleep_until|\busleep\(|\bnanosleep\b|QThread::m?sleep|_clock::now|processEvents'
clocks+='|\bgettimeofday\b|\bclock_gettime\b|\btime\((nullptr|NULL|0)\)|\bsleep\('

all_rules() {
  without '^(src/qt|tests/qt|tests/e2e|bench|tools)/' | rule "Qt outside the shell" "$qt"
  without '^(src/qt|tests/e2e|bench|tools/pictures|src/sim/pty)/' |
    rule "A clock or a sleep outside the event loops" "$clocks"
  without '^(src/sim/bench|tests|bench)/|^src/sim/bench\.h$' |
    rule "The test framework outside the tests and the virtual bench" '#include *[<"](gtest|gmock)/'
  source_files | rule "An include that is not relative to src/" '#include *"\.\.?/'
  only '\.h$' | while IFS= read -r header; do
    grep -qx '#pragma once' "$header" || printf '%s: no #pragma once\n' "$header"
  done
}

report layers "$(all_rules)"
