#!/usr/bin/env bash
# Writes the manual page (roff, section 1) of one of Zorbel's programs from
# its --help, gzipped as Debian wants it.
# Usage: scripts/man-from-help.sh PROGRAM VERSION OUT.1.gz
# The help reads: "Użycie: NAME [opcje] ...", the summary, "Opcje:", one
# option a row (continued on indented lines) and, after a blank line, details.
set -euo pipefail
PROGRAM="$1" VERSION="$2" OUT="$3"
NAME="$(basename "$PROGRAM")"
# the program runs without a screen; its help must not need one
HELP="$(env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen "$PROGRAM" --help)"

printf '%s\n' "$HELP" | awk -v name="$NAME" -v version="$VERSION" '
function esc(s) { gsub(/\\/, "\\e", s); sub(/^[.'"'"']/, "\\\\\\&&", s); return s }
function opt(s) { s = esc(s); gsub(/-/, "\\-", s); return s }
BEGIN {
    printf ".TH %s 1 \"\" \"%s %s\" \"Zorbel\"\n", toupper(name), name, version
    part = "usage"
}
part == "usage" {
    usage = substr($0, index($0, " ") + 1); part = "summary"; next
}
part == "summary" && /^Opcje:$/ { if (nf) print ".fi"; part = "options"; print ".SH OPCJE"; next }
part == "summary" {
    if (!named && $0 != "") {
        # the name line: the summary up to its first colon or full stop
        what = $0; if (match(what, /[:.]/)) what = substr(what, 1, RSTART - 1)
        printf ".SH NAZWA\n%s \\- %s\n.SH SKŁADNIA\n.B %s\n%s\n.SH OPIS\n", name, esc(what), name, esc(substr(usage, length(name) + 2))
        named = 1
    }
    # indented lines (lists, examples) keep their layout
    if (/^ / && !nf) { print ".nf"; nf = 1 }
    if (/^[^ ]/ && nf) { print ".fi"; nf = 0 }
    print (/^$/ && !nf) ? ".PP" : esc($0); next
}
part == "options" && /^  -/ {
    line = substr($0, 3); split(line, cells, /  +/)
    printf ".TP\n.B %s\n%s\n", opt(cells[1]), esc(substr(line, index(line, cells[2])))
    next
}
part == "options" && /^    / { sub(/^ +/, ""); print esc($0); next }
part == "options" && /^$/ { part = "details"; print ".SH SZCZEGÓŁY\n.nf"; next }
part == "details" { print esc($0) }
END { if (part == "details") print ".fi" }
' | gzip -9n >"$OUT"
