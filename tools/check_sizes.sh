#!/usr/bin/env bash
# A long file hides a noun. Tables may be long: files in which at least half of the lines are rows,
# that is, begin with a brace, a named field or a text. (Long functions are found by clang-tidy.)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/files.sh

longest=300
row='^ *(\{|\}|"|\.[A-Z][A-Za-z]* = )'

report sizes "$(source_files | while IFS= read -r file; do
  lines=$(wc -l <"$file")
  [ "$lines" -gt $longest ] || continue
  [ $((2 * $(grep -cE "$row" "$file" || true))) -ge "$lines" ] ||
    printf '%s: %s lines, %s are allowed\n' "$file" "$lines" $longest
done)"
