#!/usr/bin/env bash
# Every shell script is free of what shellcheck finds (.shellcheckrc).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/files.sh

report scripts "$(project_files dev .ci/run 'tools/*.sh' 'tools/hooks/*' 'packaging/completion/*' | tr '\n' '\0' |
  xargs -0 -r shellcheck --format=gcc 2>&1 || true)"
