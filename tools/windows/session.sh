# The tests of the Windows build under Wine, inside the environment; arguments go to ctest. With a
# Qt for Windows (PEVRIX_QT_WINDOWS) on a virtual display, otherwise without any.
set -euo pipefail

build=$PWD/build/windows
[ -n "${PEVRIX_QT_WINDOWS:-}" ] || unset DISPLAY
source tools/windows/wine-home.sh

# Every program is one test to ctest, which does not see what a program skips.
list_skipped() {
    sed -n '/: Skipped$/{n;s/\r//;h}
        /^\[  SKIPPED \] .* ms)/{s/^\[  SKIPPED \] \(.*\) (.*/skipped: \1: /;G;s/\n//;s/\r//;p}' \
        "$build/Testing/Temporary/LastTest.log"
}

status=0
ctest --preset windows "$@" || status=$?
list_skipped
exit $status
