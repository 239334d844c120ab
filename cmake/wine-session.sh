#!/bin/sh
# Starts or stops what the Windows test programs need: a display, the build's
# Wine prefix and one persistent wineserver (a Wine start then costs ~30 ms, not ~2 s).
#   wine-session.sh start BUILD_DIR   prints "export DISPLAY=..." lines for eval
#   wine-session.sh stop BUILD_DIR
set -eu
action=$1
build=$(cd "$2" && pwd)
export WINEPREFIX="$build/wineprefix" WINEDEBUG=-all
state="$build/wine-session"
case "$action" in
start)
    mkdir -p "$state"
    if [ -z "${DISPLAY:-}" ] && [ -f "$state/xvfb.pid" ] && [ -f "$state/display" ]; then
        # Our Xvfb still runs: every later shell must use the display the session's desktop lives on.
        # After a restart of the machine the recorded process id may belong to another program, so the
        # process must still be an Xvfb and the display's socket must still exist.
        recorded=$(cat "$state/display")
        pid=$(cat "$state/xvfb.pid")
        if grep -q Xvfb "/proc/$pid/cmdline" 2>/dev/null && [ -e "/tmp/.X11-unix/X${recorded#:}" ]; then
            DISPLAY=$recorded
            export DISPLAY
        else
            rm -f "$state/xvfb.pid" "$state/display"
        fi
    fi
    if [ -z "${DISPLAY:-}" ]; then
        # Pick a free display number and run our own Xvfb on it. A session starting beside ours may take
        # the same number first; our Xvfb then ends at once, and the next free number is tried.
        n=90
        while :; do
            while [ -e "/tmp/.X$n-lock" ] || [ -e "/tmp/.X11-unix/X$n" ]; do n=$((n + 1)); done
            Xvfb ":$n" -screen 0 1280x800x24 -nolisten tcp </dev/null >"$state/xvfb.log" 2>&1 &
            xvfb=$!
            i=0
            # The display is ours once its lock names our Xvfb and its socket exists.
            while kill -0 $xvfb 2>/dev/null && [ $i -lt 100 ]; do
                [ -e "/tmp/.X11-unix/X$n" ] && [ "$(tr -d ' ' <"/tmp/.X$n-lock" 2>/dev/null)" = "$xvfb" ] && break
                sleep 0.1
                i=$((i + 1))
            done
            kill -0 $xvfb 2>/dev/null && break
            n=$((n + 1))
        done
        echo $xvfb >"$state/xvfb.pid"
        export DISPLAY=":$n"
        echo "$DISPLAY" >"$state/display"
    fi
    echo "export DISPLAY=$DISPLAY"
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        wineboot -i </dev/null >"$state/wineboot.log" 2>&1 || true
        wineserver -w </dev/null >/dev/null 2>&1 || true
    fi
    wineserver -p </dev/null >/dev/null 2>&1 &
    # Bring Wine's background services up now, detached from the caller's output.
    wine cmd /c exit </dev/null >/dev/null 2>&1 || true
    # Keep one process on the desktop for the whole session. Without one, Wine closes the desktop a second
    # after each test program ends, and the next program must start it again; on a loaded machine that takes
    # longer than Wine waits for it, and that program then cannot create a single window.
    if ! { [ -f "$state/desktop-holder.pid" ] && kill -0 "$(cat "$state/desktop-holder.pid")" 2>/dev/null; }; then
        { sleep 2147483647 & echo $! >"$state/desktop-holder.pid"; wait; } </dev/null 2>/dev/null |
            wine cmd >/dev/null 2>&1 &
    fi
    ;;
stop)
    if [ -f "$state/desktop-holder.pid" ]; then
        kill "$(cat "$state/desktop-holder.pid")" 2>/dev/null || true
        rm -f "$state/desktop-holder.pid"
    fi
    wineserver -k </dev/null >/dev/null 2>&1 || true
    if [ -f "$state/xvfb.pid" ]; then
        kill "$(cat "$state/xvfb.pid")" 2>/dev/null || true
        rm -f "$state/xvfb.pid" "$state/display"
    fi
    ;;
esac
