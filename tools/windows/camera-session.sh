# The camera library in build/windows/bin/ and its 32-bit sibling under Wine, inside the environment:
# registered, fed by camsender, read by camreader in both kinds of processes, unregistered.
set -euo pipefail

unset DISPLAY
source tools/windows/wine-home.sh
tools/windows/try-camera --libraries build/windows/bin --tools build/windows/tools \
    ${PEVRIX_WINE32:+--tools32 build/windows-x86/tools} --work build/windows/camera-trial
