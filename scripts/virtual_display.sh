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

startXServer() {
    local size=${1:-1280x800} number_file
    number_file=$(mktemp)
    # The server picks a free number itself and writes it when it is ready.
    Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    trap endVirtualDisplay EXIT
    local tries=0
    until [ -s "$number_file" ]; do
        sleep 0.05
        tries=$((tries + 1))
        [ $tries -lt 400 ] || {
            echo "The virtual display didn't start." >&2
            return 1
        }
    done
    DISPLAY=:$(cat "$number_file")
    export DISPLAY
    rm -f "$number_file"
}

startVirtualDisplay() {
    startXServer "$@"
    openbox >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    local tries=0
    until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; do
        sleep 0.05
        tries=$((tries + 1))
        [ $tries -lt 400 ] || break
    done
}

# startWeston WxH [HOST [SCALE]]. The size is counted in units of SCALE pixels. HOST is headless (what it is without one), where nobody can touch pointer or
# keys, or x11: over the whole of startXServer's display, which has to be as large. It lives in
# XDG_RUNTIME_DIR, paints without a GPU and lets weston-screenshooter look at the screen, which
# belongs to the windows alone: there is no panel.
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
    local tries=0
    until [ -S "$socket" ]; do
        sleep 0.05
        tries=$((tries + 1))
        [ $tries -lt 400 ] || {
            echo "Weston didn't start." >&2
            return 1
        }
    done
    # The whole path, so that a program may have another XDG_RUNTIME_DIR.
    export WAYLAND_DISPLAY=$socket
}
