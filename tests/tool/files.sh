#!/bin/sh
# Input and output: standard streams, several pages, and what a failed run leaves behind.
set -eu
. "$(dirname "$0")/lib.sh"

echo "$drawing" >a.svg
echo "$drawing" | "$tool" --title same >piped.ps
"$tool" --title same a.svg -o named.ps
"$tool" --title same - -o dashed.ps <a.svg
cmp piped.ps named.ps
cmp piped.ps dashed.ps
gzip -c a.svg >b.svgz
"$tool" --title same b.svgz -o zipped.ps
cmp piped.ps zipped.ps

"$tool" a.svg b.svgz a.svg -o three.ps
grep -q '^%%Pages: 3$' three.ps || fail "three pages"
rm -f -- *.ps *.svgz

expect_status 1 "$tool" missing.svg -o x.ps
expect_message 'missing.svg: No such file'
expect_status 1 "$tool" / -o x.ps
expect_status 1 "$tool" /dev/null -o x.ps
echo '<svg><rect' >broken.svg
expect_status 1 "$tool" broken.svg -o x.ps
expect_message 'broken.svg: .*line 1'
expect_files a.svg broken.svg

expect_status 1 "$tool" a.svg broken.svg -o partly.ps
grep -q '^%%Pages: 1$' partly.ps || fail "the good page"
rm partly.ps

expect_status 1 "$tool" a.svg -o no/such/folder/x.ps
expect_message 'cannot be written: No such file'
if [ -e /dev/full ]; then
    expect_status 1 "$tool" a.svg -o /dev/full
    expect_message 'No space left'
    status=0
    "$tool" a.svg >/dev/full 2>err || status=$?
    [ "$status" -eq 1 ] || fail "full standard output ended with $status"
fi
echo old >kept.ps
echo '<svg width="9" height="9"><foreignObject width="9" height="9"/></svg>' >strange.svg
expect_status 1 "$tool" --strict strange.svg -o kept.ps
grep -q '^old$' kept.ps || fail "the old file is gone"
expect_files a.svg broken.svg kept.ps strange.svg

# A reader that goes away ends the run with an error, not a signal.
i=0
while [ $i -lt 2000 ]; do echo '<path d="M0 0L9 9 3 4 5 6 7 8 1 2 3 4 5 6 7 8z"/>'; i=$((i + 1)); done >shapes
{ echo '<svg width="9" height="9">'; cat shapes; echo '</svg>'; } >large.svg
{ status=0; "$tool" large.svg 2>err || status=$?; echo "$status" >status; } | head -c 100 >/dev/null
[ "$(cat status)" -eq 1 ] || fail "closed pipe ended with $(cat status)"
