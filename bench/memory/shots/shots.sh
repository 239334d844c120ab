#!/bin/sh
# Screenshots of the memory viewer, the Virtual Memory page and the Strings page in English and German,
# and of the search and progress templates, under Xvfb in a Wine desktop: <build>/screenshots/memory-*.png
#   bench/memory/shots/shots.sh BUILD_DIR
set -eu
build=$(cd "${1:-build}" && pwd)
root=$(cd "$(dirname "$0")/../../.." && pwd)
export WINEPREFIX="$build/screenshot-prefix" WINEDEBUG=-all
work="$build/screenshots"
mkdir -p "$work"
headless_size=1280x800 headless_logs="$work"
. "$root/tools/headless-wine.sh"
wineserver -p </dev/null >/dev/null 2>&1
for language in en de; do
    (cd "$build/bin" && wine explorer /desktop=memory,1280x800 lmvx_memory_shots.exe "$language" 12 </dev/null >"$work/memory-$language.log" 2>&1 &)
    sleep 10
    import -window root "$work/memory-$language.png"
    for dialog in 264 265; do
        (cd "$build/bin" && wine explorer /desktop=memory,1280x800 res_dialog_viewer.exe "$dialog" "$language" 6 </dev/null >/dev/null 2>&1 &)
        sleep 5
        import -window root "$work/memory-$dialog-$language.png"
    done
    sleep 3
done
wineserver -k </dev/null >/dev/null 2>&1 || true
ls "$work"/memory-*.png
