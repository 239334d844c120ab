#!/bin/sh
# Starts Lumivex under Wine in a Wine desktop with a taskbar and a notification area.
# With a display: runs there until you close it. Without one: runs under Xvfb, saves a screenshot of
# the running program, says where, and ends it.
#   tools/run-lumivex.sh BUILD_DIR
set -eu
build=$(cd "${1:-build}" && pwd)
export WINEPREFIX="$build/run-prefix" WINEDEBUG=-all
bin="$build/bin"
desktop="explorer /desktop=lumivex,1280x800"

if [ -n "${DISPLAY:-}" ]; then
    [ -f "$WINEPREFIX/system.reg" ] || wineboot -i </dev/null >/dev/null 2>&1 || true
    . "$(dirname "$0")/wine-fonts.sh"
    cd "$bin" && exec wine $desktop lmvx64.exe
fi

shots="$build/screenshots"
mkdir -p "$shots"
headless_size=1280x800 headless_logs="$shots"
. "$(dirname "$0")/headless-wine.sh"
# Nobody can answer the first-start language choice here: English, unless a choice is stored already.
settings='HKCU\Software\Orvane Software\Lumivex\Settings'
wine reg query "$settings" /v LanguageID </dev/null >/dev/null 2>&1 ||
    wine reg add "$settings" /v LanguageID /t REG_DWORD /d 1033 /f </dev/null >/dev/null 2>&1

(cd "$bin" && wine $desktop lmvx64.exe </dev/null >"$shots/wine.log" 2>&1 &)
# Give the program time to start and fill its list, then take the picture.
sleep "${LMVX_SHOT_DELAY:-12}"
import -window root "$shots/lumivex.png"
echo "Lumivex is running under Xvfb (no display here). Screenshot: $shots/lumivex.png"
