#!/bin/sh
# Families of font maps: font-map.sh TOOL SOURCE_FOLDER
set -eu
. "$(dirname "$0")/lib.sh"

svg() { # FAMILIES
    printf '<svg xmlns="http://www.w3.org/2000/svg" width="300" height="90">' >text.svg
    printf '<text x="9" y="30" font-family="%s">Hello</text></svg>\n' "$1" >>text.svg
}

# expect_font NAME: the last document shows its text as a string of that font of the printer.
expect_font() {
    grep -q '(Hello)' out || fail "no string: $(cat err)"
    grep -q "^%%DocumentNeededResources: font $1\$" out || fail "not in $1: $(grep -a 'font' out | head -3)"
    [ ! -s err ] || fail "told: $(cat err)"
}

map() { # ENCODING FAMILY FONT
    printf '// QsdPSFonts 1.0\n// Encoding: %s\nFamily "%s"\nNormalName %s\nBoldName %s-Heavy\n' "$1" "$2" "$3" "$3"
}

# No map but the tests' own, whatever is installed.
mkdir -p none data/psfonts
map ISO8859-1 palatino Palatino-Roman >data/psfonts/fontname.qsd
map ISO8859-1 'Some Face' SomeFace >some.qsd
map ISO8859-1 palatino Another >another.qsd
map EUC-JP Ryumin Ryumin-Medium-H >japanese.qsd
QSDPATH=$work/none
export QSDPATH

for families in "Some Face" "SOME FACE, serif" "'Nowhere at all', 'some face', Arial"; do
    svg "$families"
    expect_status 0 "$tool" --font-map some.qsd text.svg
    expect_font SomeFace
done
svg "Arial, 'Some Face'"
expect_status 0 "$tool" --font-map some.qsd text.svg
expect_font Helvetica
printf '<svg width="99" height="9"><text font-family="some face" font-weight="bold">Hello</text></svg>' >text.svg
expect_status 0 "$tool" --font-map some.qsd text.svg
expect_font SomeFace-Heavy
# A map may come through a pipe.
map ISO8859-1 'Some Face' Piped | "$tool" --font-map /dev/stdin text.svg >out 2>err
expect_font Piped-Heavy

# Where the place of something follows from letters that nobody has measured, that is told.
printf '<svg width="99" height="9"><text font-family="some face">He<tspan fill="red">llo</tspan></text></svg>' >text.svg
expect_status 0 "$tool" --font-map some.qsd text.svg
expect_message '^qsdps: text.svg: 2 texts laid out as wide as in Helvetica: their mapped fonts are not known here$'

# The map on the data path counts as well, and the one that is given counts more.
svg "Palatino, serif"
expect_status 0 env QSDPATH="$work/data" "$tool" text.svg
expect_font Palatino-Roman
expect_status 0 env QSDPATH="$work/data" "$tool" --font-map another.qsd text.svg
expect_font Another
expect_status 0 env QSDPATH="$2/data" "$tool" text.svg
expect_font Palatino-Roman

# A family is one of an encoding.
svg Ryumin
expect_status 0 "$tool" --encoding euc-jp --font-map japanese.qsd text.svg
grep -q '^%%DocumentNeededResources: font Ryumin-Medium-H$' out || fail "no mapped font in a Japanese document"
svg Arial
expect_status 0 "$tool" --encoding euc-jp --font-map japanese.qsd text.svg
! grep -q 'Ryumin-Medium-H' out || fail "a mapped font for another family"

# What cannot be used is told with its reason.
expect_status 1 "$tool" --font-map missing.qsd text.svg
expect_message '^qsdps: missing.qsd: not read: No such file or directory$'
expect_status 1 "$tool" --font-map none text.svg
expect_message '^qsdps: none: not read: Is a directory$'
expect_status 1 "$tool" --font-map /dev/zero text.svg
expect_message '^qsdps: /dev/zero: not read: a font map cannot be a device$'
expect_status 1 "$tool" --font-map text.svg text.svg
expect_message '^qsdps: text.svg: not a font map file that can be used: Invalid header$'
[ "$(wc -l <err)" -eq 1 ] || fail "more than one line: $(cat err)"
