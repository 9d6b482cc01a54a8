# Sourced: startVirtualDisplay WxH puts an X server with a window manager up, sets DISPLAY and takes
# both down when the script ends. Only processes started here are ended.
virtual_display_pids=()

endVirtualDisplay() {
    local pid
    for pid in "${virtual_display_pids[@]}"; do
        kill "$pid" 2>/dev/null || true
    done
}

startVirtualDisplay() {
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
    openbox >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    tries=0
    until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; do
        sleep 0.05
        tries=$((tries + 1))
        [ $tries -lt 400 ] || break
    done
}
