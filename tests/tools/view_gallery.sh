# The gallery takes a picture of every dialog, and those of docs/dialogs are all there are. What the pictures show is
# for eyes.
set -eu
export LSAN_OPTIONS=suppressions=$CANVAS_SOURCE_DIR/tests/view/leaks.txt:print_suppressions=0
export CANVAS_GALLERY=${CANVAS_BIN%/*}/canvas_gallery
[ -x "$CANVAS_GALLERY" ] || { echo "no Qt 6 here: no pictures"; exit 77; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$CANVAS_SOURCE_DIR/tools/gallery" "$folder"
diff <(cd "$folder" && ls) <(cd "$CANVAS_SOURCE_DIR/docs/dialogs" && ls)
diff "$folder/README.md" "$CANVAS_SOURCE_DIR/docs/dialogs/README.md"
for picture in "$folder"/*.png; do
    [ "$(head -c 8 "$picture" | tail -c 7)" = $'PNG\r\n\x1a' ] || { echo "no picture: $picture"; exit 1; }
done
