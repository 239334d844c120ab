#!/bin/sh
# Image strings against GNU strings, memory search and memory viewer figures, in one run.
#   bench/memory/run-memory-bench.sh <build folder> [file]
# Without a file, a 100 MB file is made from the build's own binaries (repeated) in the build folder.
set -eu
build=$(cd "$1" && pwd)
file=${2:-$build/bench-100mb.bin}
if [ ! -f "$file" ]; then
    : > "$file"
    while [ "$(stat -c %s "$file")" -lt 104857600 ]; do cat "$build"/bin/*.exe "$build"/bin/*.dll >> "$file"; done
    truncate -s 104857600 "$file"
fi
echo "file: $file ($(stat -c %s "$file") bytes)"
start=$(date +%s.%N)
strings -a "$file" > /dev/null
strings -a -e l "$file" > /dev/null
end=$(date +%s.%N)
echo "GNU strings -a plus strings -a -e l: $(echo "$end - $start" | bc) s"
"$build/wine-run.sh" "$build/bin/memory_bench.exe" "$(winepath -w "$file" 2>/dev/null || echo "Z:$file" | tr / '\\')"
