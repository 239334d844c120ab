# Sourced by the scripts that run Lumivex without a display: starts a private Xvfb with the given screen
# size, exports DISPLAY, arranges for it and the prefix's wineserver to stop on exit, and creates the
# Wine prefix ($WINEPREFIX) on its first use, with Wine's own fonts in it.
#   headless_size=WIDTHxHEIGHT headless_logs=LOG_FOLDER; . tools/headless-wine.sh
n=95
while [ -e "/tmp/.X$n-lock" ] || [ -e "/tmp/.X11-unix/X$n" ]; do n=$((n + 1)); done
Xvfb ":$n" -screen 0 "${headless_size}x24" -nolisten tcp </dev/null >"$headless_logs/xvfb.log" 2>&1 &
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
. "$(dirname "$0")/wine-fonts.sh"
