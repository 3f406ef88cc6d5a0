#!/bin/sh
# What documents are called, in their header and when they are PDF.
set -eu
. "$(dirname "$0")/lib.sh"

# expect_title LINE: the last document says so in its header; without an argument it says nothing.
expect_title() {
    found=$(grep -a '^%%Title' out || true)
    [ "$found" = "${1+%%Title: $1}" ] || fail "title: $found, not: ${1-none}"
}

# expect_pdf_title TEXT: the last document says so when it has become PDF.
expect_pdf_title() {
    ps2pdf out out.pdf
    found=$(pdfinfo -enc UTF-8 out.pdf | sed -n 's/^Title: *//p')
    rm out.pdf
    [ "$found" = "$1" ] || fail "title in PDF: $found, not: $1"
}

titled() { # TITLE ELEMENT
    printf '<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20">%s<rect width="9" height="9"/></svg>\n' "$1"
}

mkdir -p some/folder
echo "$drawing" >some/folder/a.svg
titled '<title>Sales
   of <!-- all --> 2024 &lt;<![CDATA[EUR]]>&gt;
</title><title>Another</title>' >some/folder/titled.svg
titled '<title> </title>' >blank.svg
printf 'P1 1 1 0\n' >a.pbm

# A drawing's own title, else the file's name; standard input has none.
expect_status 0 "$tool" some/folder/titled.svg
expect_title 'Sales of 2024 <EUR>'
expect_pdf_title 'Sales of 2024 <EUR>'
expect_status 0 "$tool" some/folder/a.svg
expect_title a.svg
expect_pdf_title a.svg
expect_status 0 "$tool" blank.svg
expect_title blank.svg
expect_status 0 "$tool" ./a.pbm
expect_title a.pbm
expect_status 0 "$tool" - <some/folder/a.svg
expect_title
expect_pdf_title ''
expect_status 0 "$tool" -o b.ps - <some/folder/a.svg
mv b.ps out
expect_title
expect_status 0 "$tool" <some/folder/titled.svg
expect_title 'Sales of 2024 <EUR>'

# A document of several is called what its file is.
expect_status 0 "$tool" some/folder/titled.svg a.pbm -o some/folder/two.ps
mv some/folder/two.ps out
expect_title two.ps
expect_status 0 "$tool" some/folder/titled.svg a.pbm
expect_title

# What the user says counts most.
expect_status 0 "$tool" --title Report some/folder/titled.svg -f eps
expect_title Report
expect_pdf_title Report
expect_status 0 "$tool" --title '' some/folder/titled.svg
expect_title
for title in '(a (b) c)' 'a ) b' 'atend' '(atend)' 'C:\374\n\(x)\\' '%%EOF' '<48>' 'Grün – „50 €“' '日本語 (1) \ 2' 'Ω 😀'; do
    expect_status 0 "$tool" --title "$title" a.pbm
    expect_pdf_title "$title"
done
expect_status 0 "$tool" --title 'first
second' a.pbm
expect_pdf_title 'first second'
long=$(printf '%0300d' 7)
for title in "$long" "ü$long" "語語語語$long"; do
    expect_status 0 "$tool" --title "$title" a.pbm
    [ "$(grep -a '^%%Title' out | wc -c)" -le 255 ] || fail "a line of $(grep -a '^%%Title' out | wc -c) bytes"
    ps2pdf out out.pdf
    pdfinfo -enc UTF-8 out.pdf | grep -q '^Title:  *[ü語]*00*\.\.\.$' || fail "cut: $(pdfinfo -enc UTF-8 out.pdf)"
done
