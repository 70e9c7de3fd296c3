# 64-bit Windows by MinGW-w64 with the Universal C Runtime.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(toolchain x86_64-w64-mingw32ucrt)
set(CMAKE_C_COMPILER ${toolchain}-gcc)
set(CMAKE_CXX_COMPILER ${toolchain}-g++)
set(CMAKE_RC_COMPILER ${toolchain}-windres)

# Programs come from the building machine, all else from the Windows side.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${toolchain} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/windows/wine-run)
