# Sourced: displays for a machine without one. startXServer WxH puts an X server up and sets DISPLAY,
# startVirtualDisplay WxH does so with a window manager, and startWeston WxH puts a Wayland compositor
# up and sets WAYLAND_DISPLAY. They go when the script ends. Only processes started here are ended.
virtual_display_pids=()

endVirtualDisplay() {
    local pid
    for pid in "${virtual_display_pids[@]}"; do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    virtual_display_pids=()
}

# waitUntil COMMAND...: until the command succeeds; false when it doesn't for twenty seconds.
waitUntil() {
    local tries=0
    until "$@"; do
        sleep 0.05
        tries=$((tries + 1))
        [ $tries -lt 400 ] || return 1
    done
}

startXServer() {
    local size=${1:-1280x800} number_file
    number_file=$(mktemp)
    # The server picks a free number itself and writes it when it is ready.
    Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    trap endVirtualDisplay EXIT
    waitUntil [ -s "$number_file" ] || {
        echo "The virtual display didn't start." >&2
        return 1
    }
    DISPLAY=:$(cat "$number_file")
    export DISPLAY
    rm -f "$number_file"
}

hasWindowManager() {
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

startVirtualDisplay() {
    startXServer "$@"
    openbox >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    waitUntil hasWindowManager || true
}

# startWeston WxH [HOST [SCALE]]. The size is counted in units of SCALE pixels. HOST is headless (what
# it is without one), where nobody can touch pointer or keys, or x11: over the whole of startXServer's
# display, which has to be as large. It lives in XDG_RUNTIME_DIR, paints without a GPU and lets
# weston-screenshooter look at the screen, which belongs to the windows alone: there is no panel.
startWeston() {
    local size=${1:-1280x800} host=${2:-headless} scale=${3:-1} name=vistara-display
    local socket=$XDG_RUNTIME_DIR/$name
    printf '%s\n' '[core]' 'idle-time=0' '[shell]' 'panel-position=none' 'locking=false' \
        'animation=none' 'startup-animation=none' 'close-animation=none' \
        >"$XDG_RUNTIME_DIR/weston.ini"
    weston --backend="$host-backend.so" --use-pixman --debug --socket=$name \
        --width="${size%x*}" --height="${size#*x}" --scale="$scale" \
        --config="$XDG_RUNTIME_DIR/weston.ini" \
        >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    trap endVirtualDisplay EXIT
    waitUntil [ -S "$socket" ] || {
        echo "Weston didn't start." >&2
        return 1
    }
    # The whole path, so that a program may have another XDG_RUNTIME_DIR.
    export WAYLAND_DISPLAY=$socket
}
