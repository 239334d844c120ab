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
    cd "$bin" && exec wine $desktop lmvx64.exe
fi

shots="$build/screenshots"
mkdir -p "$shots"
n=95
while [ -e "/tmp/.X$n-lock" ] || [ -e "/tmp/.X11-unix/X$n" ]; do n=$((n + 1)); done
Xvfb ":$n" -screen 0 1280x800x24 -nolisten tcp </dev/null >"$shots/xvfb.log" 2>&1 &
xvfb=$!
trap 'wineserver -k </dev/null >/dev/null 2>&1 || true; kill $xvfb 2>/dev/null || true' EXIT
export DISPLAY=":$n"
i=0
while [ ! -e "/tmp/.X11-unix/X$n" ] && [ $i -lt 100 ]; do sleep 0.1; i=$((i + 1)); done

if [ ! -f "$WINEPREFIX/system.reg" ]; then
    echo "Creating the Wine prefix $WINEPREFIX (first run only)..."
    wineboot -i </dev/null >/dev/null 2>&1 || true
    wineserver -w </dev/null >/dev/null 2>&1 || true
fi
# Nobody can answer the first-start language choice here: English, unless a choice is stored already.
settings='HKCU\Software\Orvane Software\Lumivex\Settings'
wine reg query "$settings" /v LanguageID </dev/null >/dev/null 2>&1 ||
    wine reg add "$settings" /v LanguageID /t REG_DWORD /d 1033 /f </dev/null >/dev/null 2>&1

(cd "$bin" && wine $desktop lmvx64.exe </dev/null >"$shots/wine.log" 2>&1 &)
# Give the program time to start and fill its list, then take the picture.
sleep "${LMVX_SHOT_DELAY:-12}"
import -window root "$shots/lumivex.png"
echo "Lumivex is running under Xvfb (no display here). Screenshot: $shots/lumivex.png"
