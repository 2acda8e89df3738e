# To be sourced by a session of the program: a display of its own with a window manager, and a home in
# $top. Exits with 77 where no display comes up: such a computer cannot tell anything of the program.

top=$(mktemp -d)
window_manager=
server=
program=
end() {
  kill $program $window_manager $server 2>/dev/null || true
  # The next display may get the number of this one, whose socket it must not take away.
  wait
  rm -rf "$top"
}
trap end EXIT

# Nothing of whoever runs this may be read or written, and no accessibility or portal service asked.
unset WAYLAND_DISPLAY XAUTHORITY XDG_RUNTIME_DIR XDG_CONFIG_HOME XDG_DATA_HOME QT_SCALE_FACTOR
export HOME=$top/window LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb DBUS_SESSION_BUS_ADDRESS=disabled:
# What the libraries of the display leave behind is none of ours.
export ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0
mkdir -p "$HOME"
mkfifo "$top/display"
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp -noreset 3>"$top/display" >/dev/null 2>&1 &
server=$!
DISPLAY=:$(head -n 1 "$top/display")
export DISPLAY
deadline=$((SECONDS + 30))
until xdotool getmouselocation >/dev/null 2>&1; do
  [ $SECONDS -lt $deadline ] || exit 77
done
matchbox-window-manager -use_titlebar yes >/dev/null 2>&1 &
window_manager=$!
