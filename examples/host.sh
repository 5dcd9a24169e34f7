#!/bin/sh
# SPDX-License-Identifier: MIT
# A host of Mobrel: hands one picture over and reports what came back.
#
#     examples/host.sh FOLDER NUMBER [PICTURE.bmp]
#
# FOLDER holds the exchange. PICTURE is copied into it as temp.bmp; without it temp.bmp has to be there.
# The program is the one named by MOBREL, else mobrel of the release build, else mobrel on the PATH.
set -eu

say() {
    echo "host: $*"
}

fail() {
    echo "host: $*" >&2
    exit 1
}

if [ $# -lt 2 ] || [ $# -gt 3 ]; then
    echo "usage: host.sh FOLDER NUMBER [PICTURE.bmp]" >&2
    exit 2
fi
folder=$1
number=$2

built=$(dirname "$0")/../build/release/bin/mobrel
program=${MOBREL:-$built}
[ -x "$program" ] || [ -n "${MOBREL:-}" ] || program=mobrel
command -v "$program" >/dev/null || fail "no program $program; build it, or name it in MOBREL"

[ -d "$folder" ] || fail "no folder $folder"
[ -w "$folder" ] || fail "the folder $folder cannot be written"

# 1. The picture.
if [ $# -eq 3 ]; then
    [ -r "$3" ] || fail "no picture $3"
    cp "$3" "$folder/temp.bmp.new"
    mv "$folder/temp.bmp.new" "$folder/temp.bmp"
fi
[ -f "$folder/temp.bmp" ] || fail "no picture: $folder/temp.bmp is not there and none was named"
result=$(cd "$folder" && pwd)/result.bmp
before=$(cksum <"$folder/temp.bmp")

# 2. The number, and no WinState of an earlier run. A host that keeps other things in config.ini changes
#    only these two lines.
printf '[ZV-HARBORLY]\r\nFilter=%s\r\n' "$number" >"$folder/config.ini"

# 3. Start, and wait for the end. What the program has to tell stands on its standard error. The result file
#    has the picture of every run; temp.bmp stays as it is after a dialog.
rm -f "$result"
status=0
told=$(MOBREL_FOLDER=$(cd "$folder" && pwd) MOBREL_RESULT=$result "$program" </dev/null 2>&1) || status=$?

# 4. Was the work done? WinState tells, and not the status: after Apply in a dialog that is 1.
state=$(tr -d '\r' <"$folder/config.ini" | sed -n 's/^WinState=//p')
[ "$state" = 1 ] || [ "$status" -eq 0 ] || fail "the program ended with status $status: $told"
[ "$state" = 1 ] || fail "the program ended without setting WinState $told"
[ -z "$told" ] || fail "$told"

# 5. The result.
if [ "$before" = "$(cksum <"$result")" ]; then
    say "done, the picture is as it was: $result"
else
    say "done, the result is $result"
fi
