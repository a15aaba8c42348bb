#!/usr/bin/env bash
# A long file hides a noun. (Long functions are found by clang-tidy.)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/files.sh

longest=400

report sizes "$(source_files | while IFS= read -r file; do
  lines=$(wc -l <"$file")
  [ "$lines" -le $longest ] || printf '%s: %s lines, %s are allowed\n' "$file" "$lines" $longest
done)"
