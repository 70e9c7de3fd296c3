# The libraries that the rooms stand on.
set(PEVRIX_GOOGLETEST_SOURCE "" CACHE PATH
    "Folder of GoogleTest's sources, for a target that no ready library exists for")
set(PEVRIX_QRCODEGEN_SOURCE "" CACHE PATH
    "Folder of qrcodegen.cpp and .hpp, for a target that no ready library exists for")

find_package(Threads REQUIRED)
if(PEVRIX_QT)
    find_package(Qt6 6.8 REQUIRED COMPONENTS Core Gui Network Qml Quick Widgets)
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
