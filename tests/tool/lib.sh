# What the tests of the tool share. Each gets the tool as its first argument and works in a folder of its own.

tool=$1
interpret=$(cd "$(dirname "$0")/../render" && pwd)/interpret.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
SOURCE_DATE_EPOCH=1700000000
export SOURCE_DATE_EPOCH

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# expect_status N COMMAND...: runs the command and checks its exit status; output goes to the files out and err.
expect_status() {
    expected=$1
    shift
    status=0
    "$@" >out 2>err || status=$?
    [ "$status" -eq "$expected" ] || fail "$* ended with $status, not $expected: $(cat err)"
}

# expect_message TEXT: the last command said this on standard error.
expect_message() {
    grep -q -- "$1" err || fail "no message like '$1' in: $(cat err)"
}

# expect_files NAME...: the folder holds these files besides out and err, and no others.
expect_files() {
    found=$(ls -A | grep -v -x -e out -e err | tr '\n' ' ')
    [ "$found" = "${*:+$* }" ] || fail "files here: $found, not: $*"
}

drawing='<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20"><rect width="40" height="20" fill="red"/></svg>'
