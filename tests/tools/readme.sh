#!/usr/bin/env bash
# What the README says is so: the files that it names are there, its code compiles, its command lines are understood.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
bad=0

# files and folders: words in backquotes or links that hold a slash or an ending of the project's own
names=$(grep -o '`[^`]*`\|](\([^)]*\))' "$root/README.md" | tr -d '`' | sed 's/^](\(.*\))$/\1/' |
    grep -E '^[A-Za-z_./-]+(/|\.(h|cpp|md|json|bpa|txt))$' | grep -vE '^(build/|homing|machine|my)' | sort -u)
for name in $names; do
    [ -e "$root/$name" ] || { echo "README.md names $name, which is not there"; bad=1; }
done

# the code, as the body of a function
{
    sed -n '/^```cpp$/,/^```$/p' "$root/README.md" | grep '#include'
    echo 'void asOnThePage() {'
    sed -n '/^```cpp$/,/^```$/p' "$root/README.md" | grep -v '#include\|^```'
    echo '}'
} >"$folder/page.cpp"
g++ -std=c++20 -Wall -Wextra -Werror -I"$root" -fsyntax-only "$folder/page.cpp" || bad=1

# the command lines, on an example in place of the user's file
cp "$root/examples/homing.bpa" "$folder/machine.bpa"
mkdir "$folder/programs"
cp "$root/examples/homing.bpa" "$folder/programs/"
cd "$folder"
sed -n '/^## Command line$/,/^## /p' "$root/README.md" | sed -n 's/^    \(canvas [^ ].*\)$/\1/p' | sed 's/   .*//' >lines
[ -s lines ] || { echo "README.md shows no command lines"; bad=1; }
while read -r line; do
    eval "${line/#canvas/\"\$CANVAS_BIN\"}" >output 2>&1 || { echo "as in README.md: $line"; cat output; bad=1; }
done <lines
exit $bad
