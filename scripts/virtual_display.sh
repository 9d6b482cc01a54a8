# Sourced: displays for a machine without one. startXServer WxH puts an X server up and sets DISPLAY,
# startVirtualDisplay WxH and startTilingDisplay WxH do so with a window manager. startWeston WxH and
# startSway WxH put a Wayland compositor up and set WAYLAND_DISPLAY. They go when the script ends. Only
# processes started here are ended.
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
    # The server picks a free number itself and writes it when it is ready. A server that begins anew
    # when its last client leaves throws out who is just coming.
    Xvfb -displayfd 3 -screen 0 "${size}x24" -noreset -nolisten tcp 3>"$number_file" \
        >/dev/null 2>&1 &
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

waitForWindowManager() {
    waitUntil hasWindowManager || {
        echo "The window manager didn't start." >&2
        return 1
    }
}

startVirtualDisplay() {
    startXServer "$@"
    openbox >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    waitForWindowManager
}

# The window manager decides on every size itself: a window has the whole screen but for a border and
# a title, and none is ever maximised.
startTilingDisplay() {
    startXServer "$@"
    printf '%s\n' '# i3 config file (v4)' 'font pango:DejaVu Sans 8' >"$XDG_RUNTIME_DIR/i3.conf"
    i3 -c "$XDG_RUNTIME_DIR/i3.conf" >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    waitForWindowManager
}

# startWeston WxH [HOST [SCALE [PANEL]]]. The size is counted in units of SCALE pixels. HOST is headless
# (what it is without one), where nobody can touch pointer or keys, or x11: over the whole of
# startXServer's display, which has to be as large. PANEL is a side of the screen; without one the
# screen belongs to the windows alone. It lives in XDG_RUNTIME_DIR, paints without a GPU and lets
# weston-screenshooter look at the screen.
startWeston() {
    local size=${1:-1280x800} host=${2:-headless} scale=${3:-1} panel=${4:-none}
    local name=vistara-display
    local socket=$XDG_RUNTIME_DIR/$name
    printf '%s\n' '[core]' 'idle-time=0' '[shell]' "panel-position=$panel" 'locking=false' \
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
    unset SWAYSOCK
}

# startSway WxH. It tiles as startTilingDisplay does, without border and title, and answers whoever asks
# to be maximised that the window isn't. It lives in a folder of XDG_RUNTIME_DIR, paints without a GPU
# and lets grim look at the screen. It refuses to run as root, so root has nobody run it.
startSway() {
    local size=${1:-1280x800} as=()
    local home=$XDG_RUNTIME_DIR/sway
    mkdir -p "$home"
    printf '%s\n' "output HEADLESS-1 resolution $size" 'default_border none' 'xwayland disable' \
        >"$home/config"
    if [ "$(id -u)" -eq 0 ]; then
        chmod a+x "$XDG_RUNTIME_DIR"
        chown -R nobody "$home"
        as=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
    fi
    env -u DISPLAY -u WAYLAND_DISPLAY -u SWAYSOCK HOME="$home" XDG_RUNTIME_DIR="$home" \
        WLR_BACKENDS=headless WLR_RENDERER=pixman WLR_LIBINPUT_NO_DEVICES=1 \
        "${as[@]}" sway --config "$home/config" >/dev/null 2>&1 &
    virtual_display_pids+=($!)
    trap endVirtualDisplay EXIT
    waitUntil [ -S "$home/wayland-1" ] || {
        echo "Sway didn't start." >&2
        return 1
    }
    WAYLAND_DISPLAY=$home/wayland-1
    SWAYSOCK=$(echo "$home"/sway-ipc.*) # which tells a program what it runs on
    export WAYLAND_DISPLAY SWAYSOCK
}
