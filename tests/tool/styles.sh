#!/bin/sh
# Style sheets: files beside the drawing, what is told, and hostile ones.
set -eu
. "$(dirname "$0")/lib.sh"

mkdir -p in/sub
echo 'rect:nth-child(3) { fill: var(--c, blue) } circle:hover { fill: blue }' >in/sheet.css
echo '@import "../sheet.css"; @import "../../secret.css"; :root { --c: #ff0000 }' >in/sub/outer.css
echo 'rect { fill: blue !important }' >secret.css
cat >in/a.svg <<'END'
<?xml version="1.0"?>
<?xml-stylesheet type="text/css" href="sub/outer.css"?>
<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20"><style>@media screen { rect { fill: blue } }</style>
<circle r="1"/><rect width="calc(50% - 10px)" height="10"/></svg>
END
expect_status 0 "$tool" in/a.svg -o a.ps
expect_message "in/a.svg:2: style sheet rule skipped: selector ':hover' is not known, in 'sheet.css'"
expect_message "style sheet '../../secret.css' not read: no such file beside the drawing or below"
[ "$(grep -c hover err)" -eq 1 ] || fail "told twice: $(cat err)"

# The same without a sheet.
cat >plain.svg <<'END'
<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20"><circle r="1"/><rect width="10" height="10"
fill="#ff0000"/></svg>
END
expect_status 0 "$tool" --title same plain.svg -o plain.ps
expect_status 0 "$tool" -q --title same in/a.svg -o styled.ps
cmp plain.ps styled.ps || fail "the sheet does not do what attributes do"

# Standard input has nothing beside it.
expect_status 0 "$tool" - -o piped.ps <in/a.svg
expect_message "style sheet 'sub/outer.css' not read"

# A text that names no family is in Times, as one that names it.
echo '<svg width="90" height="20"><text y="9">Hello</text></svg>' >default.svg
echo '<svg width="90" height="20"><text y="9" font-family="Times New Roman">Hello</text></svg>' >times.svg
expect_status 0 "$tool" --title same default.svg -o default.ps
expect_status 0 "$tool" --title same times.svg -o times.ps
cmp default.ps times.ps || fail "another font without a family"
grep -q 'Times-Roman' default.ps || fail "no Times in the document"

# Variables that multiply end soon.
awk 'BEGIN { print "<svg width=\"9\" height=\"9\"><style>*{--v0:lol;"; for (i = 1; i < 60; i++) {
    printf "--v%d:", i; for (j = 0; j < 10; j++) printf "var(--v%d)", i - 1; print ";" }
    print "fill:var(--v59)}</style><rect width=\"5\" height=\"5\"/></svg>" }' >laughs.svg
expect_status 0 timeout 300 "$tool" laughs.svg -o laughs.ps
expect_message "fill left as if not given: variable '--v59' has no value"
