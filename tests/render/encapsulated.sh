#!/bin/sh
# Encapsulated documents, alone and placed in another: encapsulated.sh DRAW CHECK-STRUCTURE
set -eu
draw=$1
check=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

render() { # DOCUMENT PAGE WIDTHxHEIGHT
    messages=$(gs -q -dNOSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 -g"$3" -sOutputFile="$2" "$1" 2>&1) ||
        fail "$1: $messages"
    [ -z "$messages" ] || fail "$1: $messages"
}

for kind in "1 rgb" "2 rgb" "3 rgb" "2 grey"; do
    name=$(echo "$kind" | tr ' ' '-')
    # Level and model are two words.
    # shellcheck disable=SC2086
    "$draw" "$name.eps" $kind print eps
    "$check" "$name.eps"
    render "$name.eps" "$name.ppm" 400x120

    # Placed as publishing programs do; the operand and dictionary stacks are as they were.
    cat >around.ps <<END
%!PS-Adobe-3.0
10 20 moveto 30 40 lineto
/Before save def /Operands count 1 sub def /Dictionaries countdictstack def
userdict begin /showpage {} def
0 setgray 0 setlinecap 1 setlinewidth 0 setlinejoin 10 setmiterlimit [] 0 setdash newpath
30 50 translate
newpath 0 0 moveto 400 0 lineto 400 120 lineto 0 120 lineto closepath clip newpath
($work/$name.eps) run
count Operands ne {(operands are left) =} if
countdictstack Dictionaries 1 add ne {(dictionaries are left) =} if
end
Before restore
stroke showpage
END
    render around.ps around.ppm 500x200
    # 50 points above the bottom of a sheet of 200 are 30 points below its top.
    convert around.ppm -crop 400x120+30+30 +repage placed.ppm
    convert "$name.ppm" plain.ppm
    cmp placed.ppm plain.ppm || fail "$name placed is not what it is alone"

    # The program that people hold documents against finds the box inside ours.
    epstool --bbox --copy --quiet "$name.eps" boxed.eps >/dev/null 2>&1 || fail "epstool does not take $name"
    awk '/^%%BoundingBox:/ { exit !($2 >= -1 && $3 >= -1 && $4 <= 401 && $5 <= 121 && $4 > $2) }' boxed.eps ||
        fail "the box of $name: $(grep -a BoundingBox boxed.eps)"
done
