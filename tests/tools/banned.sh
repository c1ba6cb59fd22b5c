# Each banned name is found once, with its place; comments, look-alikes and lines with a reason are not.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
cat >bad.cpp <<'TXT'
double a = strtod(text, &end);
double b = std::stod(text);
int c = atoi(text);
setlocale(LC_ALL, "");
stream.imbue(std::locale());
std::ostringstream stream;
printf("%d %5.2f", 1, 2.0);
std::snprintf(buffer, sizeof buffer, "%g", 1.0);
sscanf(text, "%d", &n);
auto v = std::views::all(list);
auto w = std::source_location::current();
TXT
cat >good.cpp <<'TXT'
// strtod reads by the locale
std::from_chars(first, last, number);  // not atoi
setlocale(LC_ALL, "de_DE.UTF-8");  // banned-ok: nothing may change
printf("%d%%", 5);
Overviews::all(custodian, reviews);
TXT
"$CANVAS_SOURCE_DIR/tools/banned" . >found && exit 1
diff <(grep -o '^bad.cpp:[0-9]*' found | sort -u) <(seq -f 'bad.cpp:%g' 11 | sort)
grep good.cpp found && exit 1

rm bad.cpp
"$CANVAS_SOURCE_DIR/tools/banned" . >found
diff /dev/null found
