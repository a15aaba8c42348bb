#!/usr/bin/env bash
# clang-tidy over our sources, two files at a time. A file that was found clean is looked at again
# only when it, any header, the list of checks or the way of compiling has changed.
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
                            sed -n 's/^\([^ :/]*_autogen\): .*/\1/p')
  [ ${#generators[@]} -eq 0 ] || ninja -C build/dev "${generators[@]}"
}
if ! prepare >"$work/prepare.log" 2>&1; then
  report tidy "$(cat "$work/prepare.log")"
fi

# clang can't read the other compiler's precompiled headers. Without them a forgotten include shows.
sed -E 's/ -include [^ "]*cmake_pch\.hxx//; s/ -Winvalid-pch//; s/ -fpch-preprocess//' \
  build/dev/compile_commands.json >"$work/compile_commands.new"
if cmp -s "$work/compile_commands.new" "$work/compile_commands.json"; then
  rm "$work/compile_commands.new"
else
  mv "$work/compile_commands.new" "$work/compile_commands.json"
fi

newestInput=$({ project_files 'src/*.h' 'src/*.ui'; printf '%s\n' .clang-tidy; } |
              tr '\n' '\0' | xargs -0 ls -t "$work/compile_commands.json" -- | head -n 1 || true)

# tidy_one FILE: prints the findings of one file in one piece, or leaves its mark as clean.
tidy_one() {
  local output code=0
  output=$(clang-tidy -p "$work" --quiet --extra-arg=-Wno-unknown-warning-option "$1" 2>&1) ||
    code=$?
  output=$(grep -vE '^[0-9]+ (warning|error)s?( and [0-9]+ errors?)? (generated|treated)' \
           <<<"$output" || true)
  if [ "$code" != 0 ] || [ -n "$output" ]; then
    printf '%s: clang-tidy ended with code %s\n%s\n' "$1" "$code" "$output"
  else
    touch "$work/clean/${1//\//+}"
  fi
}
export -f tidy_one
export work

is_clean() {
  local mark="$work/clean/${1//\//+}"
  [ "$mark" -nt "$1" ] && [ "$mark" -nt "$newestInput" ]
}

report tidy "$(project_files 'src/*.cpp' | while IFS= read -r file; do
  is_clean "$file" || printf '%s\0' "$file"
done | xargs -0 -r -P2 -n1 bash -c 'tidy_one "$1"' tidy)"
