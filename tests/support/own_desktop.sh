# Sourced: an environment in which a program loads the same parts of Qt on every machine, whatever
# desktop this one has and whichever of its parts are installed.
unset XDG_CURRENT_DESKTOP DESKTOP_SESSION SESSION_MANAGER KDE_FULL_SESSION KDE_SESSION_VERSION
unset QT_PLUGIN_PATH QT_QPA_PLATFORM_PLUGIN_PATH QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE
unset QT_ACCESSIBILITY QT_LINUX_ACCESSIBILITY_ALWAYS_ON QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS
unset XMODIFIERS GTK_MODULES
# No bus and no session to talk to.
export DBUS_SESSION_BUS_ADDRESS=disabled: LC_ALL=C.UTF-8
# Qt expects every other input method to have a keyboard.
export QT_IM_MODULE=compose
export QT_WAYLAND_SHELL_INTEGRATION=xdg-shell QT_WAYLAND_DECORATION=bradient
# No driver of a graphics card.
export LIBGL_ALWAYS_SOFTWARE=1
