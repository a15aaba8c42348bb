#!/usr/bin/env bash
# Every source, or each of the FILES given, looks as .clang-format has it. To mend: ./dev format
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/files.sh

report format "$(source_files "$@" | tr '\n' '\0' |
  xargs -0 -r -P2 -n 16 clang-format --dry-run -Werror 2>&1 | grep -E '(error|warning):' || true)"
