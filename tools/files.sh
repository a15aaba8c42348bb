# shellcheck shell=bash
# The lists of files that the checks look at, and how a check reports. Sourced by tools/check_*.sh.

# project_files [PATTERN...]: what belongs to the project, new files included, built ones not.
project_files() {
  if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    git ls-files --cached --others --exclude-standard -- "$@" | sort -u |
      while IFS= read -r file; do [ ! -f "$file" ] || printf '%s\n' "$file"; done
  else
    local all pattern
    all=$(find . \( -path ./build -o -path ./.git \) -prune -o -type f -printf '%P\n' | sort)
    [ $# -gt 0 ] || set -- '*'
    while IFS= read -r file; do
      for pattern in "$@"; do
        # shellcheck disable=SC2053
        if [[ $file == $pattern ]]; then printf '%s\n' "$file"; break; fi
      done
    done <<<"$all"
  fi
}

# source_files [FILE...]: our C++ sources, or those among the files.
source_files() {
  project_files "$@" | grep -E '^(src|tests|bench|tools)/.*\.(cpp|h)$' || true
}

# matches EXPRESSION < LIST: "file:line:text" for each line of the listed files that matches. No
# match is no error.
matches() {
  tr '\n' '\0' | xargs -0 -r grep -nHIP -e "$1" -- || true
}

# report NAME FINDINGS: one line, with the findings above it when there are any. Fails on findings.
report() {
  if [ -n "$2" ]; then
    printf '%s\n' "$2"
    printf '%-8s FAILED, see above\n' "$1"
    return 1
  fi
  printf '%-8s ok\n' "$1"
}
