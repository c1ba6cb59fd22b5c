# A person at a real screen: a double click on a field of Move Axis opens the expression builder, what is typed there
# comes back into the field, OK writes the file.
set -eu
export LSAN_OPTIONS=suppressions=$CANVAS_SOURCE_DIR/tests/view/leaks.txt:print_suppressions=0
# libxcb copies texts of a known length that no zero ends
export ASAN_OPTIONS=${ASAN_OPTIONS:-}:strict_string_checks=0
[ -e "${CANVAS_BIN%/*}/../lib/libCanvasView.so" ] || { echo "no Qt 6 here: there is no view"; exit 77; }
for program in Xvfb xdotool; do
    command -v $program >/dev/null || { echo "$program is missing"; exit 77; }
done
folder=$(mktemp -d)
Xvfb -displayfd 4 -screen 0 1280x900x24 -nolisten tcp 4>"$folder/display" 2>"$folder/xvfb.log" &
server=$!
trap 'kill $server 2>/dev/null || true; wait $server 2>/dev/null || true; rm -rf "$folder"' EXIT
for _ in $(seq 100); do
    [ -s "$folder/display" ] && break
    sleep 0.1
done
DISPLAY=:$(cat "$folder/display")
export DISPLAY QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$folder
unset WAYLAND_DISPLAY

# within SECONDS COMMAND...: repeats the command until it succeeds
within() {
    local left=$(($1 * 10))
    shift
    until "$@"; do
        left=$((left - 1))
        [ $left -gt 0 ] || { echo "never came true: $*"; return 1; }
        sleep 0.1
    done
}
window() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1; }
has_window() { [ -n "$(window "$1")" ]; }
lacks_window() { [ -z "$(window "$1")" ]; }
# What a window manager does: there is none here.
to_front() { xdotool windowfocus "$(window "$1")" && [ "$(xdotool getwindowfocus)" = "$(window "$1")" ]; } 2>/dev/null

cp "$CANVAS_SOURCE_DIR/examples/homing.bpa" "$folder/homing.bpa"
"$CANVAS_BIN" form MoveAxis "$folder/homing.bpa" 8 >"$folder/out" 2>"$folder/err" &
dialog=$!
within 20 has_window "Move Axis" || { cat "$folder/err"; exit 1; }
within 10 to_front "Move Axis"

# The velocity is the third of six lines, right of its label. There is no window manager, so the window is its client area.
eval "$(xdotool getwindowgeometry --shell "$(window "Move Axis")")"
xdotool mousemove $((X + WIDTH * 35 / 100)) $((Y + HEIGHT * 42 / 100)) click --repeat 2 --delay 60 1
within 10 has_window "Expression Builder"
within 10 to_front "Expression Builder"
xdotool key ctrl+a type --delay 20 'Line_Speed*"2;'
xdotool key Return
within 10 lacks_window "Expression Builder"
within 10 to_front "Move Axis"
xdotool key Return
within 10 lacks_window "Move Axis"

status=0
wait $dialog || status=$?
cat "$folder/out" "$folder/err"
[ $status = 0 ]
grep -q 'block 8 written' "$folder/out"
"$CANVAS_BIN" show "$folder/homing.bpa" >"$folder/shown"
# the builder's filter keeps delimiters of program files out
sed -n '/^8 Move Axis/,/^9 /p' "$folder/shown" | grep -qx '    Velocity = Line_Speed\*2'

# Cancelled, the file stays as it was, byte for byte.
cp "$folder/homing.bpa" "$folder/before.bpa"
"$CANVAS_BIN" form frmMoveAxis "$folder/homing.bpa" 8 >"$folder/out" &
dialog=$!
within 20 has_window "Move Axis"
within 10 to_front "Move Axis"
xdotool key Tab type 77
xdotool key Escape
wait $dialog
grep -q unchanged "$folder/out"
cmp "$folder/homing.bpa" "$folder/before.bpa"

# Where no screen answers, the dialog is refused in words.
status=0
DISPLAY=:9999 QT_QPA_PLATFORM='' "$CANVAS_BIN" form MoveAxis 2>"$folder/err" || status=$?
[ $status = 5 ]
grep -q 'cannot be shown here' "$folder/err"
