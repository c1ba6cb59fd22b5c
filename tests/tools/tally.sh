# Cases, deaths, leaks and shell tests are counted: two cases pass and a third is skipped in "good", one of two fails in
# "bad", "dead" leaves no report, "leak" fails after its one case passed, and of the shell tests one passes, one fails,
# one skips itself and one cannot be started.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cat >"$scratch/ctest.xml" <<'TXT'
<testsuite name="Linux" tests="8" failures="4" disabled="0" skipped="2">
	<testcase name="good" classname="good" time="0.1" status="run">
		<system-out>&lt;testcase name="x" status="fail"&gt;</system-out>
	</testcase>
	<testcase name="bad" classname="bad" time="0.1" status="fail">
		<failure message=""/>
	</testcase>
	<testcase name="dead" classname="dead" time="0.1" status="fail">
	</testcase>
	<testcase name="leak" classname="leak" time="0.1" status="fail">
	</testcase>
	<testcase name="tools.good" classname="tools.good" time="0.1" status="run">
	</testcase>
	<testcase name="tools.bad" classname="tools.bad" time="0.1" status="fail">
	</testcase>
	<testcase name="tools.left" classname="tools.left" time="0.1" status="notrun">
		<skipped message="SKIP_RETURN_CODE=77"/>
	</testcase>
	<testcase name="tools.lost" classname="tools.lost" time="0.1" status="notrun">
		<skipped message="Unable to find executable"/>
	</testcase>
</testsuite>
TXT
report() {
    cat <<TXT
<testsuites tests="$1" failures="$2" disabled="0" errors="0" name="AllTests">
  <testsuite name="A" tests="$1" failures="$2" disabled="0" skipped="$3" errors="0">
    <testcase name="a" status="run" result="completed" />
  </testsuite>
</testsuites>
TXT
}
report 3 0 1 >"$scratch/good.xml"
report 2 1 0 >"$scratch/bad.xml"
report 1 0 0 >"$scratch/leak.xml"
diff <(echo 5 5 2) <("$CANVAS_SOURCE_DIR/tools/tally" "$scratch")
diff <(echo 0 0 0) <("$CANVAS_SOURCE_DIR/tools/tally" "$scratch/nowhere")
