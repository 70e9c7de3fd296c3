# The libraries that the rooms stand on.
set(PEVRIX_GOOGLETEST_SOURCE "" CACHE PATH
    "Folder of GoogleTest's sources, for a target that no ready library exists for")
set(PEVRIX_QRCODEGEN_SOURCE "" CACHE PATH
    "Folder of qrcodegen.cpp and .hpp, for a target that no ready library exists for")
set(PEVRIX_LIBYUV_SOURCE "" CACHE PATH
    "Folder of libyuv's sources, for a target that no ready library exists for")

find_package(Threads REQUIRED)
if(PEVRIX_QT)
    find_package(Qt6 6.8 REQUIRED COMPONENTS Core Gui Network Qml Quick Widgets)
    if(NOT WIN32)
        find_package(Qt6 6.8 REQUIRED COMPONENTS DBus) # desktops tell their settings there
    endif()
endif()

if(NOT WIN32 OR (PEVRIX_QT AND NOT PEVRIX_QRCODEGEN_SOURCE))
    find_package(PkgConfig REQUIRED)
endif()

# On Windows the system decodes and encodes.
if(NOT WIN32)
    pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET libavcodec libavutil
        libavformat>=61.7) # FFmpeg 7.1: recordings that survive a crash
endif()

if(PEVRIX_QRCODEGEN_SOURCE)
    add_library(qrcodegen STATIC ${PEVRIX_QRCODEGEN_SOURCE}/qrcodegen.cpp)
    target_include_directories(qrcodegen SYSTEM PUBLIC ${PEVRIX_QRCODEGEN_SOURCE})
    add_library(PkgConfig::QRCODEGEN ALIAS qrcodegen)
elseif(PEVRIX_QT)
    pkg_check_modules(QRCODEGEN REQUIRED IMPORTED_TARGET qrcodegencpp)
endif()

# What converts and scales the camera's pictures. It comes without a description of its own.
if(PEVRIX_LIBYUV_SOURCE)
    file(GLOB sources ${PEVRIX_LIBYUV_SOURCE}/source/*.cc)
    # No JPEG, and nothing for other families of processors. Of the rest a compiler sees its own part.
    list(FILTER sources EXCLUDE REGEX "jpeg|_(mmi|msa|lsx|lasx|neon|neon64)\\.cc$")
    add_library(yuv STATIC EXCLUDE_FROM_ALL ${sources})
    target_include_directories(yuv SYSTEM PUBLIC ${PEVRIX_LIBYUV_SOURCE}/include)
    # Whatever the build: pictures are converted by unoptimised code ten times slower.
    target_compile_options(yuv PRIVATE -O2 -w)
    set_target_properties(yuv PROPERTIES AUTOMOC OFF)
else()
    find_library(LIBYUV_LIBRARY yuv REQUIRED)
    find_path(LIBYUV_INCLUDE_DIR libyuv.h REQUIRED)
    add_library(yuv INTERFACE)
    target_link_libraries(yuv INTERFACE ${LIBYUV_LIBRARY})
    target_include_directories(yuv SYSTEM INTERFACE ${LIBYUV_INCLUDE_DIR})
endif()
