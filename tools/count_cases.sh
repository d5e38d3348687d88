#!/bin/bash
# count_cases.sh REPORTS: how many test cases passed and failed, in one line. The folder holds one
# report for each of CTest's tests, that of its last try, and CTest's own, ctest.junit.
set -euo pipefail
reports=$1

# attribute_sum NAME FILE...: of the reports' first elements.
attribute_sum() {
    local name=$1
    shift
    sed -n "s/^<testsuites .*\\b$name=\"\\([0-9]*\\)\".*/\\1/p" "$@" | awk '{ n += $1 } END { print n + 0 }'
}

# A test program that failed and tells of no failed case has crashed or run out of time.
lost=0
while read -r name; do
    report=$reports/$name.xml
    if [[ ! -f $report ]] || (($(attribute_sum failures "$report") == 0)); then
        echo "The test program of $name did not finish" >&2
        lost=$((lost + 1))
    fi
done < <(sed -n 's/.*<testcase name="\([^"]*\)".* status="fail".*/\1/p' "$reports/ctest.junit")

shopt -s nullglob
cases=("$reports"/*.xml)
if ((${#cases[@]} == 0)); then
    cases=(/dev/null)
fi
failed=$(attribute_sum failures "${cases[@]}")
completed=$(cat "${cases[@]}" | grep -c '<testcase .*result="completed"' || true)
echo "$((completed - failed)) passed, $((failed + lost)) failed"
