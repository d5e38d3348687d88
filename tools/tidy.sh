#!/bin/bash
# tidy.sh [FILE...]: clang-tidy with the settings of .clang-tidy over all sources, or over those that are
# named; a header is looked at where the source of its name includes it. Any warning fails. Sources found
# clean before are passed over until they change (tools/tidy_sources.py).
# TIDY_JOBS: sources at a time, as many as there are processors otherwise.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

need build test check

tidy=$root/build/tidy
(cd "$root" && cmake --preset tidy) >&2
# Sources include what moc makes of them.
cmake --build "$tidy" --target autogen >&2

# source_of FILE: the source itself, or that of a header; nothing where there is none to look at.
source_of() {
    local source=${1%.h}
    source=${source%.cpp}.cpp
    if [[ $source =~ ^(src|tests|benchmarks|fuzz|tools|packaging)/ && -f $root/$source ]]; then
        echo "$root/$source"
    fi
}

cd "$root"
if (($# > 0)); then
    mapfile -t files < <(for file; do source_of "$file"; done | sort -u)
else
    mapfile -t files < <(find "$root"/src "$root"/tests "$root"/benchmarks "$root"/fuzz "$root"/tools -name '*.cpp' | sort)
fi
# What is not built here has no command to be looked at with.
mapfile -t known < <(sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$tidy/compile_commands.json" | sort -u)
mapfile -t files < <(comm -12 <(printf '%s\n' "${files[@]}") <(printf '%s\n' "${known[@]}"))
if ((${#files[@]} == 0)); then
    echo "clang-tidy: no source to look at"
    exit 0
fi

log=$tidy/tidy.log
status=0
"$root/tools/tidy_sources.py" "$tidy" "${TIDY_JOBS:-$(nproc)}" "${files[@]}" | tee "$log" >&2 || status=1
echo "clang-tidy: ${#files[@]} sources, $(grep -cE '(warning|error): ' "$log" || true) warnings"
exit "$status"
