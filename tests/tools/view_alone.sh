# The toolkit is needed by the view alone: neither the program nor the component is linked with it.
set -eu
lib=${CANVAS_BIN%/*}/../lib
for file in "$CANVAS_BIN" "$lib/libCanvas.so"; do
    [ -e "$file" ] || continue
    needed=$(readelf -d "$file" | grep NEEDED)
    if grep -iE 'Qt|CanvasView' <<<"$needed"; then exit 1; fi
done
[ -e "$lib/libCanvasView.so" ] || { echo "no Qt 6 here: there is no view"; exit 77; }
# the view itself shows one symbol
[ "$(nm -D --defined-only "$lib/libCanvasView.so" | awk '$2 != "A" { print $3 }')" = canvasView ]
