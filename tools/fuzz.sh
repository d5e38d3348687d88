#!/bin/bash
# fuzz.sh [SECONDS] [ENTRY...]: builds the entries of fuzz/ with clang's fuzzer, ASan and UBSan, and lets
# it at each of them, or at those that are named, for so long (60 s). What it has learned stays in
# build/fuzz/corpus and is where the next run begins. A finding ends its entry; the input lies in
# build/fuzz/findings, and build/fuzz/fuzz_<entry> FILE repeats it. The last line counts entries.
# FUZZ_JOBS: entries at a time, as many as there are processors otherwise.
# FUZZ_SEED: where the fuzzer's chance begins, elsewhere each time otherwise. How far it comes depends on
# the machine, and on what it knows already, the corpus.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

seconds=${1:-60}
shift || true
fuzz=$root/build/fuzz

need build test check

cmake -S "$root" -B "$fuzz" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DVELORAMA_FUZZ=ON -DVELORAMA_TESTS=OFF -DVELORAMA_WERROR=OFF \
    -DVELORAMA_SANITIZE=address,undefined,float-cast-overflow,fuzzer-no-link >&2
cmake --build "$fuzz" --target fuzz >&2

entries=("$@")
if ((${#entries[@]} == 0)); then
    mapfile -t entries < <(cd "$root/fuzz" && printf '%s\n' *_fuzz.cpp | sed 's/_fuzz\.cpp$//')
fi

# Files of readers that take a path.
TMPDIR=$(mktemp -d -p "$([[ -w /dev/shm ]] && echo /dev/shm || echo "${TMPDIR:-/tmp}")")
trap 'rm -rf "$TMPDIR"' EXIT

export root fuzz seconds TMPDIR
export QT_QPA_PLATFORM=offscreen HOME=$TMPDIR
export XDG_CONFIG_HOME=$TMPDIR XDG_CACHE_HOME=$TMPDIR XDG_DATA_HOME=$TMPDIR XDG_RUNTIME_DIR=$TMPDIR
export ASAN_OPTIONS=allocator_may_return_null=1
export LSAN_OPTIONS=suppressions=$root/fuzz/leaks_elsewhere.txt:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1

rm -rf "$fuzz/seeds"
mkdir -p "$fuzz/seeds" "$fuzz/findings" "$fuzz/logs"
"$fuzz/fuzz_seeds" "$fuzz/seeds"

# is_stall NAME: true if the entry ended at an input that takes no time by itself: a machine that stands
# still for half a minute looks like a hang.
is_stall() {
    local slow
    slow=$(sed -n 's/.*Test unit written to \(.*-timeout-.*\)$/\1/p' "$fuzz/logs/$1.log")
    [[ -n $slow ]] && "$fuzz/fuzz_$1" -timeout=30 -artifact_prefix="$fuzz/findings/$1-again-" "$slow" \
        >"$fuzz/logs/$1.again.log" 2>&1 && rm "$slow"
}

# run_entry NAME: the longest input is that of the corpus, 4096 bytes at the least. An input of 30 s is
# a finding as well, and so is one that takes 3 GB: pictures may take 512 MB, and ASan keeps what is freed.
run_entry() {
    local name=$1 log=$fuzz/logs/$1.log words=() status=0 count
    mkdir -p "$fuzz/corpus/$name" "$fuzz/seeds/$name"
    if [[ -e $root/fuzz/$name.dict ]]; then
        words+=(-dict="$root/fuzz/$name.dict")
    fi
    "$fuzz/fuzz_$name" -seed="${FUZZ_SEED:-0}" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=3072 -print_final_stats=1 \
        -artifact_prefix="$fuzz/findings/$name-" "${words[@]}" "$fuzz/corpus/$name" "$fuzz/seeds/$name" \
        >"$log" 2>&1 || status=$?
    count=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    if ((status == 0)) || is_stall "$name"; then
        echo "$name: ${count:-0} inputs, clean"
        return
    fi
    tail -n 60 "$log" >&2
    echo "$name: FAILED after ${count:-?} inputs, $(sed -n 's/.*Test unit written to //p' "$log")"
    return 1
}
export -f is_stall run_entry

status=0
printf '%s\n' "${entries[@]}" |
    xargs -P "${FUZZ_JOBS:-$(nproc)}" -I '{}' bash -c 'run_entry "$1"' _ '{}' |
    tee "$fuzz/logs/outcome" || status=1
failed=$((${#entries[@]} - $(grep -c ', clean$' "$fuzz/logs/outcome" || true)))
echo "$((${#entries[@]} - failed)) passed, $failed failed"
exit "$((failed > 0 ? 1 : status))"
