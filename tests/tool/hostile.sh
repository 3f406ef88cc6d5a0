#!/bin/sh
# Drawings that mean no good: the tool says so or draws what it can, soon, and never crashes.
set -eu
. "$(dirname "$0")/lib.sh"

awk 'BEGIN { printf "<svg width=\"9\" height=\"9\">"; for (i = 0; i < 100000; i++) printf "<g>"; printf "<rect/>";
    for (i = 0; i < 100000; i++) printf "</g>"; print "</svg>" }' >deep.svg
expect_status 0 "$tool" -q deep.svg -o deep.ps

awk 'BEGIN { print "<svg width=\"9\" height=\"9\"><rect id=\"a0\" width=\"1\" height=\"1\"/>";
    for (i = 1; i < 12; i++) { printf "<g id=\"a%d\">", i; for (j = 0; j < 10; j++) printf "<use href=\"#a%d\"/>", i - 1;
    print "</g>" } print "<use href=\"#a11\"/></svg>" }' >bomb.svg
expect_status 0 timeout 300 "$tool" -q bomb.svg -o bomb.ps

cat >numbers.svg <<'END'
<svg width="1e308" height="nan" viewBox="-1e308 0 1e308 1e-308"><path d="M1e999 0L-1e308 1e308z" stroke="red"
stroke-width="1e300"/><text font-size="1e300">x</text><rect width="-1" height="1"/><path d="M0 0L5 x 9"/></svg>
END
status=0
timeout 300 "$tool" numbers.svg -o numbers.ps 2>err || status=$?
[ "$status" -le 1 ] || fail "numbers ended with $status"

head -c 100000 /dev/urandom >noise.svg
expect_status 1 "$tool" noise.svg -o noise.ps
[ ! -e noise.ps ] || fail "noise left a document"

# Texts and names stay inside their literals.
cat >words.svg <<'END'
<svg width="90" height="20"><text y="9" font-family=") quit (, Courier">(a) \ ) showpage ( {b} $ &#10; %!PS</text></svg>
END
expect_status 0 "$tool" words.svg -o words.ps
grep -q -F '(\(a\) \\ \) showpage \( \{b\} \$' words.ps || fail "literal: $(grep show words.ps)"

# Dashes on lines without an end: the one that is seen, or as many as the page has room for.
cat >dashes.svg <<'END'
<svg width="100" height="40" stroke="red" stroke-width="4" stroke-linecap="round"><path d="M9 10H1e300" stroke-dasharray="9 1e300"/>
<path d="M-1e300 20H1e300" stroke-dasharray="5 5"/><path d="M0 30H90" stroke-dasharray="1e-7"/></svg>
END
expect_status 0 timeout 300 "$tool" dashes.svg -o dashes.ps
expect_message '1 line drawn without its dashes: there are too many'

# Clips that refer twice to the one before, and in a long chain.
clips() {
    awk -v levels="$1" -v own="$2" 'BEGIN { print "<svg width=\"9\" height=\"9\"><clipPath id=\"c0\"><circle r=\"9\"/></clipPath>"
        for (i = 1; i <= levels; i++) {
            before = "clip-path=\"url(#c" i - 1 ")\""
            printf "<clipPath id=\"c%d\" %s><rect width=\"9\" height=\"9\" %s/></clipPath>", i, before, own ? before : ""
        }
        printf "<rect width=\"9\" height=\"9\" clip-path=\"url(#c%d)\"/></svg>", levels }'
}
clips 30 1 >clips.svg
expect_status 0 timeout 300 "$tool" clips.svg -o clips.ps
[ ! -s err ] || fail "told: $(cat err)"
clips 100000 0 >chain.svg
expect_status 0 timeout 300 "$tool" chain.svg -o chain.ps
expect_message 'nested too deep'
