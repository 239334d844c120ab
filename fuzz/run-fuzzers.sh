#!/bin/sh
# Builds the host fuzzers and runs each for SECONDS seconds from its seed corpus.
#   run-fuzzers.sh <build folder> <seconds> [seed]
# With a seed the run is repeatable (make test); without, libFuzzer picks one (make fuzz). New inputs
# go to a scratch corpus in the build folder, never into the seeds. A finding ends with a non-zero status
# and leaves the input as <build>/crash-* .
set -eu
build=$1
seconds=$2
seed=${3:-}
here=$(cd "$(dirname "$0")" && pwd)
[ -f "$build/CMakeCache.txt" ] || cmake -S "$here" -B "$build" -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build "$build" -j 2 >/dev/null
for fuzzer in hex_dump_fuzzer memory_scan_fuzzer image_strings_fuzzer; do
    scratch="$build/corpus/$fuzzer"
    # A seeded run starts from the seeds alone, so that it repeats exactly.
    [ -z "$seed" ] || rm -rf "$scratch"
    mkdir -p "$scratch"
    echo "$fuzzer: ${seconds}s${seed:+, seed $seed}"
    "$build/$fuzzer" -max_total_time="$seconds" -max_len=70000 ${seed:+-seed=$seed} \
        -artifact_prefix="$build/" -print_final_stats=1 "$scratch" "$here/corpus/$fuzzer" 2>"$build/$fuzzer.log" ||
        { tail -40 "$build/$fuzzer.log"; exit 1; }
    grep -E 'stat::number_of_executed_units|Done' "$build/$fuzzer.log" | tr '\n' ' '; echo
done
