#!/bin/sh
# Texts as strings and as outlines.
set -eu
. "$(dirname "$0")/lib.sh"

svg() {
    printf '<svg xmlns="http://www.w3.org/2000/svg" width="300" height="90">%s</svg>\n' "$1"
}

expect_status 2 "$tool" --text pictures x.svg
expect_message '--text'

svg '<text x="9" y="30" font-family="Helvetica">Hello</text>' >plain.svg
svg '<text x="9" y="30" font-family="Nowhere">Hello</text>' >other.svg
for form in auto strings; do
    expect_status 0 "$tool" --text $form plain.svg
    grep -q '(Hello)' out || fail "no string with --text $form"
    [ ! -s err ] || fail "told: $(cat err)"
done
expect_status 0 "$tool" --text strings other.svg
grep -q '(Hello)' out || fail "no string in another font"
expect_message '1 text shown in another font'

# Without fonts all are strings.
echo '<fontconfig><cachedir>cache</cachedir></fontconfig>' >none.conf
expect_status 0 env FONTCONFIG_FILE="$work/none.conf" "$tool" --text outlines plain.svg
grep -q '(Hello)' out || fail "no string without fonts"
expect_message '1 text kept as a string: it cannot be outlined'
expect_status 0 env FONTCONFIG_FILE="$work/none.conf" "$tool" other.svg
grep -q '(Hello)' out || fail "no string in another font without fonts"

# The rest is about outlines, for which there must be a font.
expect_status 0 "$tool" --text outlines plain.svg
! grep -q 'cannot be outlined' err || exit 0
! grep -q '(Hello)' out || fail "a string with --text outlines"
expect_status 0 "$tool" other.svg
! grep -q '(Hello)' out || fail "a string in another font"
[ ! -s err ] || fail "told: $(cat err)"

# What is installed counts, not which language the user speaks.
svg '<text x="9" y="30" font-family="Nowhere">A &#x672a;&#x9aa8; &#x3b1; &#x5d0;&#x5d1; &#x1f600;</text>' >world.svg
expect_status 0 env LC_ALL=C "$tool" world.svg
mv out first
for language in ja_JP.UTF-8 zh_CN.UTF-8 de_DE.UTF-8; do
    expect_status 0 env LC_ALL=$language FC_LANG=$language "$tool" world.svg
    cmp -s first out || fail "another document in $language"
done

# Long texts: no more than a moment, and within bounds.
words() {
    awk -v n="$1" 'BEGIN { for (i = 0; i < n; ++i) printf "outline " }'
}
svg "<linearGradient id='g'><stop stop-color='red'/><stop offset='1'/></linearGradient>
<g font-family='Nowhere' font-size='8'><text y='9' fill-opacity='.5'>$(words 1200)</text>
<text y='29' fill='url(#g)' stroke='blue' stroke-opacity='.5'>$(words 1200)</text></g>" >long.svg
expect_status 0 timeout 300 "$tool" long.svg
svg "<text y='9' font-family='Nowhere'>$(words 20000)</text>" >longer.svg
expect_status 0 timeout 300 "$tool" longer.svg
grep -q '(outline ' out || fail "no string for a text of 160000 letters"

# A text that cuts: without fonts it is told.
svg '<clipPath id="c"><text x="9" y="30">Hello</text></clipPath><rect width="90" height="40" clip-path="url(#c)"/>' >cut.svg
expect_status 0 "$tool" cut.svg
[ ! -s err ] || fail "told: $(cat err)"
expect_status 0 env FONTCONFIG_FILE="$work/none.conf" "$tool" cut.svg
expect_message '1 text in a clipPath element left out'
