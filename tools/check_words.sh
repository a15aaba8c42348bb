#!/usr/bin/env bash
# Words that have no business in the project, or in the FILES given: names of papers that a reader
# does not have, folders of one machine, hosts that packages come from. The expressions are put together from pieces, so
# that this file does not find itself.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/files.sh

s="s" p="pec" P="[Pp]art" w="wor" h="hom" r="roo" u="Use"
papers="(?i:\\b$s$p(ification)?s?\\b)|\\b${P}s? [0-9]+\\.[0-9]|\\($P [0-9]"
papers+="|left to the imp""lementer|order of buil""ding|DEVEL""OPERS\\.md"
papers+="|sha""red/(decisions|architecture|pitfalls|models)"
folders="/${w}k/|/${h}e/[a-z]|/${r}t/|/${u}rs/[A-Za-z]|/m""nt/[a-z]"
hosts="(?i:de""b\\.debian|sec""urity\\.debian|arc""hive\\.ubuntu|py""pi\\.|pyth""onhosted"
hosts+="|npm""js\\.|crat""es\\.io|proxy\\.gol""ang|doc""ker\\.io|gh""cr\\.io|arti""factory)"

report words "$(project_files "$@" | grep -v '^LICENSE$' | matches "$papers|$folders|$hosts")"
