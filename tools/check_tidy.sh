#!/usr/bin/env bash
# clang-tidy over our sources, two files at a time. A file that was found clean is looked at again
# only when something has changed that its findings depend on: itself, a header of ours that it
# includes at any depth, the way it is compiled, the list of checks.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/files.sh
source tools/packages.sh

work=build/check
mkdir -p "$work/clean" build/dev

# The forms' generated headers are all that must be built.
prepare() {
  local generators
  cmake --preset dev || return 1
  mapfile -t generators < <(ninja -C build/dev -t targets all |
                            sed -nE 's/^([^ :/]*_(autogen|forms)): .*/\1/p')
  [ ${#generators[@]} -eq 0 ] || ninja -C build/dev "${generators[@]}"
}
if ! prepare >"$work/prepare.log" 2>&1; then
  report tidy "$(cat "$work/prepare.log")"
fi

# clang can't read the other compiler's precompiled headers. Without them a forgotten include shows.
sed -E 's/ -include [^ "]*cmake_pch\.hxx//; s/ -Winvalid-pch//; s/ -fpch-preprocess//' \
  build/dev/compile_commands.json >"$work/compile_commands.json"

# facts: what findings depend on, as lines "NAME is DIGEST", "NAME needs NAME", "PATH wanted". Names
# are file names without their folders. Files of one name count as one, which is on the safe side.
facts() {
  project_files '*.h' '*.cpp' '*.ui' | tr '\n' '\0' | xargs -0 sha1sum -- |
    sed -E 's|^([0-9a-f]+) +(.*/)?([^/]+)$|\3 is \1|'
  sed -nE 's|^ *"command": ".*[ /]([^/]+)",$|\1\t&|p' "$work/compile_commands.json" |
    while IFS=$'\t' read -r name command; do
      printf '%s is %s\n' "$name" "${command//[[:space:]]/}"
    done
  project_files '*.h' '*.cpp' | matches '^#include "' |
    sed -E 's|^(.*/)?([^/:]+):[0-9]+:#include "(.*/)?([^/"]+)".*|\2 needs \4|
            s| needs ui_(.*)\.h$| needs \1.ui|'
  source_files | sed -n 's|\.cpp$|& wanted|p'
}

# A line for each source: its path, a tab, and its fingerprint: digests of all that is behind it.
fingerprints() {
  local checks
  checks=$({ clang-tidy --version; project_files | grep '\.clang-tidy$' | xargs cat; } | sha1sum)
  facts | awk -v checks="${checks%% *}" '
    function take(name,    names, count, i) {
      if (name in taken) return
      taken[name] = 1
      text = text " " digests[name]
      count = split(needs[name], names, " ")
      for (i = 1; i <= count; ++i) take(names[i])
    }
    $2 == "is" { digests[$1] = digests[$1] $3 }
    $2 == "needs" { needs[$1] = needs[$1] " " $3 }
    $2 == "wanted" { sources[++last] = $1 }
    END {
      for (source = 1; source <= last; ++source) {
        name = sources[source]
        sub(/.*\//, "", name)
        split("", taken)
        text = checks
        take(name)
        print sources[source] "\t" text
      }
    }'
}

mark_of() { printf '%s' "$work/clean/${1//\//+}"; }

# tidy_one FILE FINGERPRINT: prints the findings of one file in one piece, or marks it as clean.
tidy_one() {
  local output code=0
  output=$(clang-tidy -p "$work" --quiet --extra-arg=-Wno-unknown-warning-option "$1" 2>&1) ||
    code=$?
  output=$(grep -vE '^[0-9]+ (warning|error)s?( and [0-9]+ errors?)? (generated|treated)' \
           <<<"$output" || true)
  if [ "$code" != 0 ] || [ -n "$output" ]; then
    printf '%s: clang-tidy ended with code %s\n%s\n' "$1" "$code" "$output"
  else
    printf '%s' "$2" >"$(mark_of "$1")"
  fi
}
export -f tidy_one mark_of
export work

report tidy "$(fingerprints | while IFS=$'\t' read -r file fingerprint; do
  mark=$(mark_of "$file")
  { [ -f "$mark" ] && [ "$(<"$mark")" = "$fingerprint" ]; } ||
    printf '%s\0%s\0' "$file" "$fingerprint"
done | xargs -0 -r -P2 -n2 bash -c 'tidy_one "$1" "$2"' tidy)"
