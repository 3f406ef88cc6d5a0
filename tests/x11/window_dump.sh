#!/bin/sh
# Windows of other programs on paper, pixel by pixel as xwd takes them: window_dump.sh TOOL. Needs an X server.
set -eu
compare=$(cd "$(dirname "$0")" && pwd)/window_dump.py
. "$(dirname "$0")/../tool/lib.sh"

programs=""
finish() {
    for program in $programs; do
        kill "$program" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap finish EXIT
start() {
    "$@" 2>/dev/null &
    programs="$programs $!"
}
start xeyes -geometry 150x100+550+200
# Programs of old name their windows in Latin-1.
LC_ALL=C
export LC_ALL
name=$(printf 'Caf\351 (1)')
start xlogo -geometry 200x150+100+280 -fg red -bg '#204080' -bw 3 -title "$name"
logo=$!

take() { # NAME SCREENSHOT
    if [ "$1" = root ]; then
        xwd -silent -root -out "$2"
    else
        xwd -silent -nobdrs -name "$1" -out "$2" 2>/dev/null
    fi
}

# Programs take their time to draw: the picture counts that is the same before and after.
same() { # NAME SELECTION: the page of SELECTION is the screenshot of NAME
    for try in 1 2 3 4 5 6 7 8 9 10 11 12; do
        if take "$1" before && "$tool" -q --window "$2" -d 72 -o page.ps 2>err && take "$1" after &&
            cmp -s before after; then
            size=$(sed -n 's/^%%BoundingBox: 0 0 \([0-9]*\) \([0-9]*\)$/\1x\2/p' page.ps)
            messages=$(gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g"$size" -sOutputFile=page.out page.ps 2>&1)
            [ -z "$messages" ] || fail "$2: $messages"
            if python3 "$compare" before page.out 2>differences; then
                return
            fi
        fi
        sleep 0.3
    done
    fail "$2: $(cat differences err 2>/dev/null)"
}
same xeyes xeyes
expect_status 0 "$tool" --window xeyes -o page.ps
expect_message 'warning: what lies outside the screen is left out'
expect_status 0 "$tool" -q --window xeyes -o page.ps
[ ! -s err ] || fail "told all the same: $(cat err)"
# Without standard output, the picture must not reach the connection to the X server, which would have its number.
status=0
"$(dirname "$tool")/qsdps-window" root >&- 2>err || status=$?
[ "$status" -eq 1 ] || fail "closed standard output: status $status"
expect_message 'standard output: Bad file descriptor'
# Its border of one pixel is not part of it.
[ "$size" = 89x100 ] || fail "xeyes on the screen has $size"
# Its menu buttons are windows of their own; it comes to lie over a part of the logo.
start xcalc -geometry +200+20
same Calculator Calculator
same "$name" Caf
same "$name" 'Café (1)'
grep -a -q '^%%Title: Caf\\351 (1)$' page.ps || fail "title: $(grep -a Title page.ps)"
same root root
# Its number in both notations.
number=$(xwininfo -name xeyes | sed -n 's/.*Window id: \(0x[0-9a-f]*\).*/\1/p')
same xeyes "$number"
same xeyes $((number))

# Titles, sizes and pages.
"$tool" -q --window Calculator -o page.eps
grep -q '^%%Title: Calculator$' page.eps || fail "title: $(grep Title page.eps)"
"$tool" -q --window root --title Screen -p a4 --fit page -o page.ps
grep -q '^%%Title: Screen$' page.ps || fail "title: $(grep Title page.ps)"
echo "$drawing" >a.svg
"$tool" -q -d 72 --window Calculator a.svg --window=xeyes - -o page.ps <a.svg
[ "$(grep -c '^%%Page: ' page.ps)" -eq 4 ] || fail "four pages: $(grep '^%%Page' page.ps)"
grep -a '^%%PageBoundingBox' page.ps >boxes || fail "no boxes"
sort -u boxes | grep -c . | grep -q -x 3 || fail "not the pages in their order: $(cat boxes)"
"$tool" -q --window xeyes >piped.ps
grep -q '^%%EOF' piped.ps || fail "to standard output"
rm -f ./*.ps ./*.eps

# What cannot be read.
expect_status 1 "$tool" --window 'no such' -o x.ps
expect_message 'no such: no window that is shown has this name'
expect_status 1 "$tool" --window '' -o x.ps
expect_message 'no window that is shown has this name'
start xlogo -geometry 50x50+10+10 -title 'Cafeteria'
for try in 1 2 3 4 5 6 7 8 9 10; do
    xwininfo -name Cafeteria 2>/dev/null | grep -q IsViewable && break
    sleep 0.3
done
expect_status 1 "$tool" --window 'Caf' -o x.ps
expect_message 'several windows have this name: 0x[0-9a-f]* (Café .1.), 0x[0-9a-f]* (Cafeteria)$'
expect_status 0 "$tool" -q --window Cafeteria -o x.ps
rm x.ps
number=$(xwininfo -name "$name" | sed -n 's/.*Window id: \(0x[0-9a-f]*\).*/\1/p')
kill "$logo"
wait "$logo" 2>/dev/null || true
expect_status 1 "$tool" --window "$number" -o x.ps
expect_message "$number: there is no such window"
expect_message 'cannot be read'
DISPLAY=:32765 expect_status 1 "$tool" --window root -o x.ps
expect_message 'Cannot open the X display :32765'
expect_status 2 "$tool" --window
expect_status 1 "$tool" --window root -o /dev/full
[ ! -e x.ps ] || fail "a document without a page"

# The others still become pages.
expect_status 1 "$tool" a.svg --window 'no such' -o some.ps
[ "$(grep -c '^%%Page: ' some.ps)" -eq 1 ] || fail "no page of the drawing"

# Without the program that reads windows, everything else works.
mkdir bin
cp "$tool" bin/qsdps
expect_status 1 env PATH=/nowhere "$work/bin/qsdps" --window root -o x.ps
expect_message 'qsdps-window, which reads windows of the X Window System, is not installed'
expect_status 0 env -u DISPLAY PATH=/nowhere "$work/bin/qsdps" a.svg -o a.ps
