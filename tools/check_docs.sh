#!/usr/bin/env bash
# The documents name nothing that is not there, and the picture of the rooms in docs/design.md is
# that of CMakeLists.txt. "tools/check_docs.sh --draw" draws the picture anew.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/files.sh

page=docs/design.md
first='<!-- rooms: drawn by tools/check_docs.sh -->'
last='<!-- end of rooms -->'

# One arrow for each room that another one names in its USES.
draw_rooms() {
  printf '```mermaid\nflowchart TD\n'
  sed 's/#.*//' CMakeLists.txt | tr '\n' ' ' | grep -oE 'quillmark_room\([^)]*\)' |
    awk -F '[( )]+' '
      function id(room) { gsub("/", "_", room); return room }
      {
        printf "  %s[%s]\n", id($2), $2
        using = 0
        for (i = 3; i <= NF; i++) {
          if ($i ~ /^[A-Z]+$/) using = ($i == "USES")
          else if (using && $i != "") printf "  %s --> %s\n", id($2), id($i)
        }
      }'
  printf '```\n'
}

# page_with_rooms: the page with the picture as it should be.
page_with_rooms() {
  awk -v first="$first" -v last="$last" -v picture="$(draw_rooms)" '
    $0 == last { inside = 0 }
    !inside { print }
    $0 == first { print picture; inside = 1 }' "$page"
}

if [ "${1:-}" = --draw ]; then
  drawn=$(page_with_rooms)
  printf '%s\n' "$drawn" >"$page"
fi

# Links to other files, relative to the document that they stand in.
dead_links() {
  local line document target
  while IFS= read -r line; do
    document=${line%%:*}
    target=${line#*](}
    target=${target%)}
    target=${target%%#*}
    [ -z "$target" ] || [ -e "$(dirname "$document")/$target" ] ||
      printf '%s: a link to %s, which is not there\n' "$document" "$target"
  done < <(project_files '*.md' | tr '\n' '\0' |
           xargs -0 -r grep -oHE '\]\([^)]*\)' | grep -vE '\]\([a-z]+:' || true)
}

# Paths of ours in code spans. The changelog tells of what was, and one page of a made-up window.
dead_paths() {
  local line path
  while IFS= read -r line; do
    path=${line#*:}
    path=${path//\`/}
    compgen -G "$path" >/dev/null || printf '%s: %s is not there\n' "${line%%:*}" "$path"
  done < <(project_files '*.md' | grep -vxE 'CHANGELOG.md|docs/add-a-window.md' | tr '\n' '\0' |
           xargs -0 -r grep -oHE '`(src|tests|docs|tools|cmake|bench)/[^` ]*`' || true)
}

report docs "$(dead_links
  dead_paths
  grep -qxF -- "$first" "$page" || printf '%s has no place for the picture of the rooms\n' "$page"
  page_with_rooms | cmp -s - "$page" ||
    printf '%s: the picture of the rooms is old; tools/check_docs.sh --draw draws it anew\n' "$page")"
