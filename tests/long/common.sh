# Sourced by the long runs, from anywhere in the checkout. What one of them has found stands in
# build/long/NAME.txt, a line for each figure: "what<TAB>number".
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
. tools/setup.sh

name=$(basename "$0")
results=$PWD/build/long
figures=$results/$name.txt

case "${1:-}" in
-h | --help)
    usage "tests/long/$name"
    exit 0
    ;;
esac
mkdir -p "$results"
setup build check
: >"$figures"

# figure WHAT NUMBER: one line of what was found, said and kept.
figure() {
    printf '%s\t%s\n' "$1" "$2" >>"$figures"
    printf '%12s  %s\n' "$2" "$1"
}

# sum_of LOG WHAT: the sum of the lines "NUMBER WHAT" of a log.
sum_of() { awk -v what="$2" '$1 ~ /^[0-9]+$/ && substr($0, length($1) + 2) == what { sum += $1 } END { print sum + 0 }' "$1"; }

# run LOG PROGRAM...: a test program; its output is kept and, where it fails, shown.
run() {
    local log=$results/$1
    shift
    if ! QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 \
        LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0 \
        UBSAN_OPTIONS=print_stacktrace=1 "$@" >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        die "failed: $*; the whole log is in $log"
    fi
}
