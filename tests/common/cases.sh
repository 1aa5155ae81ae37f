#!/bin/sh
# A test program in one process, told case by case.
#
#   cases.sh --list FILE PROGRAM     writes the names of its cases
#   cases.sh LOG PROGRAM             runs all of them, and keeps what they say
#   cases.sh LOG PROGRAM CASE        passes or fails as the case did there; where it did not come to its end,
#                                    because the program crashed or this ctest did not run it, runs it alone
set -u

if [ "$1" = --list ]; then
    # What leaks while nothing is tested is of no interest.
    listed=$(QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 "$3" --gtest_list_tests) || exit
    printf '%s\n' "$listed" | awk '/^ / { print suite $1 } /^[^ ].*\./ { suite = $1 }' >"$2"
    [ -s "$2" ] && exit
    echo "no test in $3" >&2
    exit 1
fi

log=$1 program=$2 case=${3:-}
# A log belongs to one ctest, which is told by its process and by when that started.
read -r stat <"/proc/$PPID/stat"
# shellcheck disable=SC2086
set -- ${stat##*) }
run=$log.$PPID-${20}

if [ -z "$case" ]; then
    rm -f "$log".*
    "$program" >"$run" 2>&1
    status=$?
    cat "$run"
    exit $status
fi

if grep -aqsF "[       OK ] $case (" "$run"; then
    exit 0
fi
for result in FAILED SKIPPED; do
    if grep -aqsE "\[  $result +\] $(printf '%s' "$case" | sed 's/[.]/[.]/g')[ ,]" "$run"; then
        awk -v begin="[ RUN      ] $case" -v end="[  $result" '
            $0 == begin { inside = 1 }
            inside { print }
            inside && index($0, end) { exit }' "$run"
        [ $result = SKIPPED ]
        exit
    fi
done
exec "$program" --gtest_filter="$case"
