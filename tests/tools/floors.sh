# The floors check finds an include of a higher floor, one that leaves its folder, and the toolkit; nothing else.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
mkdir -p ground middle top/qt program
cat >CMakeLists.txt <<'TXT'
canvas_floor(ground USES fmt::fmt)
canvas_floor(middle ON ground)
canvas_floor(top ON middle USES other::other)
canvas_program(p FROM program ON top)
TXT
printf '%s\n' '#pragma once' '#include <string>' '#include "ground/b.h"' '#include "middle/a.h"' >ground/a.h
printf '%s\n' '#include "ground/a.h"' '  #  include "../top/a.h"' >middle/a.cpp
printf '%s\n' '#include "top/a.h"' '#include <QString>' >top/qt/view.cpp
printf '%s\n' '#include "ground/a.h"' '// #include <QString>' '#include <QString>' '#include "Query.h"' >top/a.cpp
printf '%s\n' '#include "top/a.h"' '#include "ground/a.h"' >program/main.cpp

cat >expected <<'TXT'
ground/a.h:4: includes middle/a.h, which ground does not stand on
middle/a.cpp:2: includes ../top/a.h, which leaves its folder by the back door
top/a.cpp:3: includes QString, which is the toolkit
TXT
"$CANVAS_SOURCE_DIR/tools/floors" . >found && exit 1
diff expected found

rm -r ground/a.h middle/a.cpp top/a.cpp
"$CANVAS_SOURCE_DIR/tools/floors" . >found
diff /dev/null found
