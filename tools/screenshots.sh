#!/bin/sh
# Takes the README's pictures of the main window, in English and in German, under Xvfb inside a Wine desktop,
# and writes them to docs/ (lumivex-en.png, lumivex-de.png).
#   tools/screenshots.sh BUILD_DIR
set -eu
build=$(cd "${1:-build}" && pwd)
root=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX="$build/screenshot-prefix" WINEDEBUG=-all
bin="$build/bin"
work="$build/screenshots"
mkdir -p "$work" "$root/docs"

headless_size=1024x700 headless_logs="$work"
. "$root/tools/headless-wine.sh"
wineserver -p </dev/null >/dev/null 2>&1

settings='HKCU\Software\Orvane Software\Lumivex\Settings'
# language id, file suffix
for shot in "1033 en" "1031 de"; do
    set -- $shot
    wine reg add "$settings" /v LanguageID /t REG_DWORD /d "$1" /f </dev/null >/dev/null 2>&1
    # Always the default size, so both pictures show the same layout.
    wine reg delete "$settings" /v MainWndPlacement /f </dev/null >/dev/null 2>&1 || true
    (cd "$bin" && wine explorer /desktop=lumivex,1024x700 lmvx64.exe </dev/null >"$work/wine-$2.log" 2>&1 &)
    sleep "${LMVX_SHOT_DELAY:-15}"
    import -window root "$work/full-$2.png"
    # The main window opens centred at 656 x 580: keep it and a small margin of the desktop.
    convert "$work/full-$2.png" -crop 680x600+172+70 +repage -strip -define png:compression-level=9 "$root/docs/lumivex-$2.png"
    wine taskkill /im lmvx64.exe /f </dev/null >/dev/null 2>&1 || true
    wineserver -k </dev/null >/dev/null 2>&1 || true
    sleep 1
    wineserver -p </dev/null >/dev/null 2>&1
    echo "docs/lumivex-$2.png"
done
