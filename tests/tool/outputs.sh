#!/bin/sh
# What a run must not destroy, and failures that must not pass for success.
set -eu
. "$(dirname "$0")/lib.sh"

echo "$drawing" >a.svg
cp a.svg before

list() {
    ls -Al | grep -v -e '^total' -e ' out$' -e ' err$' -e ' listed$'
}

# refused STATUS TEXT ARGUMENT...: the run is refused with that message, and nothing is written.
refused() {
    status=$1
    text=$2
    shift 2
    list >listed
    expect_status "$status" "$tool" "$@"
    expect_message "$text"
    cmp a.svg before || fail "$* changed the drawing"
    list | diff listed - || fail "$* changed the folder"
    [ ! -s out ] || fail "$* wrote: $(head -3 out)"
}

# An output that is an input, by whatever name.
ln -s a.svg link.ps
ln a.svg hard.ps
mkdir sub
refused 1 'a.svg: not written: it is the same file as the input a.svg' a.svg -o a.svg
refused 1 'same file as the input a.svg' a.svg -o ./a.svg
refused 1 'same file as the input a.svg' a.svg -o sub/../a.svg
refused 1 'same file as the input a.svg' a.svg -o link.ps
refused 1 'same file as the input link.ps' link.ps -o a.svg
refused 1 'same file as the input a.svg' a.svg -o hard.ps
refused 1 'same file as the input a.svg' -f ps a.svg -o a.svg
refused 1 'same file as the input a.svg' before a.svg -o hard.ps
refused 1 'same file as the input standard input' -o hard.ps <a.svg
refused 1 'same file as the input a.svg' --font-map a.svg before -o hard.ps
echo "$drawing" >grows.svg
status=0
"$tool" grows.svg >>grows.svg 2>err || status=$?
[ "$status" -eq 1 ] || fail "a drawing that is standard output: status $status"
expect_message 'standard output: not written'
cmp grows.svg before || fail "the document went behind the drawing"
rm link.ps hard.ps grows.svg

# qsdps -o *.svg takes the first drawing for the output.
cp a.svg b.svg
refused 2 'a.svg: not written: .svg is the ending of another kind of file' -o a.svg b.svg
refused 2 'A.SVGZ: not written: .SVGZ is the ending' b.svg -o A.SVGZ
for ending in png jpg pdf pnm html gz; do
    refused 2 "x.$ending: not written" a.svg -o "x.$ending"
done
ln -s target.png link.ps
refused 2 '.png is the ending of another' a.svg -o link.ps
rm link.ps
expect_status 0 "$tool" a.svg -f ps -o chart.svg
grep -q '^%!PS' chart.svg || fail "-f ps writes any name"
rm chart.svg
for name in x x.ps x.EPS x.epsf x.prn x.1 .svg; do
    expect_status 0 "$tool" a.svg -o "$name"
    rm "$name"
done

# A file that may not be written is not replaced, though its folder would let it be.
echo old >kept.ps
chmod 444 kept.ps
refused 1 'kept.ps: cannot be written: the file of this name is write-protected' a.svg -o kept.ps
grep -q '^old$' kept.ps || fail "a protected file"
chmod 644 kept.ps
if [ "$(id -u)" -eq 0 ] && setpriv --reuid 65534 --regid 65534 --clear-groups test -x "$tool" -a -r "$tool"; then
    chmod 777 .
    status=0
    setpriv --reuid 65534 --regid 65534 --clear-groups "$tool" a.svg -o kept.ps 2>err || status=$?
    [ "$status" -eq 1 ] || fail "the file of another user: status $status"
    expect_message 'write-protected'
    grep -q '^old$' kept.ps || fail "the file of another user"
fi
rm kept.ps

# Names as long as the system takes them.
for length in 248 249 250 255; do
    name=$(printf '%*s' $((length - 3)) '' | tr ' ' n).ps
    expect_status 0 "$tool" a.svg -o "$name"
    grep -q '^%%EOF' "$name" || fail "a name of $length bytes"
    rm "$name"
done
refused 1 'File name too long' a.svg -o "$(printf '%256s' '' | tr ' ' n)"
refused 2 "expected a file's name" a.svg -o ''
rm b.svg

# Where pages wait until the document is complete, there is no room.
i=0
while [ $i -lt 2000 ]; do
    echo '<path d="M0 0L9 9 3 4 5 6 7 8 1 2 3 4 5 6 7 8 9 7 5 3 1 2 3 4 5 6 7 8 9 8 7 6 5 4 3 2 1z"/>'
    i=$((i + 1))
done >shapes
{ echo '<svg width="9" height="9">'; cat shapes; echo '</svg>'; } >large.svg
rm shapes
echo old >kept.ps
for options in '-o kept.ps' '--strict -o kept.ps' ''; do
    status=0
    # shellcheck disable=SC2086
    (trap '' XFSZ && ulimit -f 100 && "$tool" large.svg large.svg $options >out 2>err) || status=$?
    [ "$status" -eq 1 ] || fail "full folder for temporary files, '$options': status $status"
    expect_message 'cannot be written: the folder for temporary files, .*, takes no more'
    [ ! -s out ] || fail "a document without its pages: $(head -3 out)"
    grep -q '^old$' kept.ps || fail "full folder for temporary files: the old document is gone"
    expect_files a.svg before kept.ps large.svg listed sub
done
rm kept.ps large.svg

# Documents that are not to be are not on standard output either.
echo '<svg width="9" height="9"><foreignObject width="9" height="9"/></svg>' >strange.svg
expect_status 1 "$tool" --strict strange.svg
[ ! -s out ] || fail "strict: wrote to standard output"
printf 'P6 90 90 255\nabc' >cut.ppm
expect_status 1 "$tool" a.svg cut.ppm
[ ! -s out ] || fail "broken picture: wrote to standard output"

# Without standard error, warnings go nowhere, least of all into the document.
"$tool" strange.svg -o expected.ps 2>/dev/null
"$tool" strange.svg -o x.ps 2>&-
sed 's/expected.ps/x.ps/' expected.ps | cmp - x.ps || fail "warnings in the document"
"$tool" strange.svg -o x.ps 2>&- <&- >&-
sed 's/expected.ps/x.ps/' expected.ps | cmp - x.ps || fail "no standard files"
"$tool" --title expected.ps - -o - <strange.svg 2>&- >x.ps
grep -q 'warning\|foreignObject' x.ps && fail "warnings on standard output"
status=0
"$tool" a.svg >&- 2>err || status=$?
[ "$status" -eq 1 ] || fail "closed standard output: status $status"
expect_message 'standard output: cannot be written: Bad file descriptor'
status=0
"$tool" -o x.ps <&- 2>err || status=$?
[ "$status" -eq 1 ] || fail "closed standard input: status $status"
expect_message 'standard input: Bad file descriptor'
if [ -e /dev/full ]; then
    for option in --help --version; do
        status=0
        "$tool" $option >/dev/full 2>err || status=$?
        [ "$status" -eq 1 ] || fail "$option on a full standard output: status $status"
        expect_message 'standard output: cannot be written'
    done
fi
