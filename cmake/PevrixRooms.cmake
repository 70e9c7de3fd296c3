# How a room, a test and the compiler flags of all of them are declared.

# Flags of everything that is ours: C++20, warnings as errors, the sanitizer.
add_library(pevrix_flags INTERFACE)
target_compile_features(pevrix_flags INTERFACE cxx_std_20)
target_include_directories(pevrix_flags INTERFACE ${PROJECT_SOURCE_DIR})
if(MSVC)
    target_compile_options(pevrix_flags INTERFACE /W4 /WX /permissive- /utf-8)
else()
    target_compile_options(pevrix_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
        -Wold-style-cast -Woverloaded-virtual -Werror)
endif()
if(NOT WIN32)
    # COM's interfaces have no virtual destructor: objects end by their reference count.
    target_compile_options(pevrix_flags INTERFACE -Wnon-virtual-dtor)
endif()
target_compile_definitions(pevrix_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_CONTEXTLESS_CONNECT
    QT_NO_FOREACH QT_DISABLE_DEPRECATED_UP_TO=0x060800)
if(MINGW)
    target_link_options(pevrix_flags INTERFACE -Wl,--no-insert-timestamp) # the same build twice is the same
endif()
if(MINGW AND NOT PEVRIX_QT)
    # Without Qt's libraries, which bring the compiler's, nothing needs to lie beside a program.
    target_link_options(pevrix_flags INTERFACE -static)
endif()
# What makes a fault in the handling of memory harder to use. Where the compiler knows it, a call
# goes to the start of a function alone; GCC for Windows does not. tools/dev/check-hardening looks at
# what was made.
if(MSVC)
    target_compile_options(pevrix_flags INTERFACE /guard:cf)
    target_link_options(pevrix_flags INTERFACE /guard:cf /HIGHENTROPYVA)
elseif(NOT PEVRIX_SANITIZER)
    target_compile_options(pevrix_flags INTERFACE -fstack-protector-strong
        $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=3>)
    if(MINGW)
        # Its static form, so that there is no library more to lie beside a program.
        target_link_libraries(pevrix_flags INTERFACE -l:libssp.a)
        target_link_options(pevrix_flags INTERFACE -Wl,--dynamicbase,--nxcompat)
    else()
        target_link_options(pevrix_flags INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
        if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
            target_compile_options(pevrix_flags INTERFACE -fcf-protection)
        endif()
    endif()
endif()
if(PEVRIX_SANITIZER)
    target_compile_options(pevrix_flags INTERFACE -fsanitize=${PEVRIX_SANITIZER}
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(pevrix_flags INTERFACE -fsanitize=${PEVRIX_SANITIZER})
endif()
if(PEVRIX_SANITIZER STREQUAL "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # It does not follow fences. Those here stand beside atomic variables that it does follow.
    target_compile_options(pevrix_flags INTERFACE -Wno-tsan)
endif()
if(PEVRIX_FUZZ)
    target_compile_options(pevrix_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# pevrix_arrows(TARGET LINK...)
# Takes note of what a target of this folder links, for rooms.txt: what its files may include.
function(pevrix_arrows target)
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    list(FILTER ARGN INCLUDE REGEX "^(pevrix_|softcam$)")
    list(JOIN ARGN " " links)
    set_property(GLOBAL APPEND_STRING PROPERTY PEVRIX_ARROWS "${folder} ${target} ${links}\n")
endfunction()

# pevrix_room(NAME [QT] SOURCES file... LINKS target...)
# One static library pevrix_NAME. QT: the room has QObjects; moc finds their headers beside the .cpp
# files of the same names, so that headers are not listed.
function(pevrix_room name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "QT" "" "SOURCES;LINKS")
    add_library(pevrix_${name} STATIC ${ARG_SOURCES})
    target_link_libraries(pevrix_${name} PUBLIC ${ARG_LINKS} PRIVATE pevrix_flags)
    target_include_directories(pevrix_${name} PUBLIC ${PROJECT_SOURCE_DIR})
    set_target_properties(pevrix_${name} PROPERTIES AUTOMOC ${ARG_QT})
    pevrix_arrows(pevrix_${name} ${ARG_LINKS})
endfunction()

# pevrix_executable(NAME SOURCES file... LINKS target...)
function(pevrix_executable name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LINKS")
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINKS} pevrix_flags)
    set_target_properties(${name} PROPERTIES AUTOMOC ${PEVRIX_QT})
    pevrix_arrows(${name} ${ARG_LINKS})
endfunction()

# pevrix_resources(NAME RESOURCE PREFIX path BASE folder FILES file...)
# Adds files to the object library pevrix_NAME. Programs that link it find them below qrc:/PREFIX.
# Format 1 is without the files' times, so that every checkout gives the same programs.
function(pevrix_resources name resource)
    cmake_parse_arguments(PARSE_ARGV 2 ARG "" "PREFIX;BASE" "FILES")
    if(NOT TARGET pevrix_${name})
        add_library(pevrix_${name} OBJECT)
    endif()
    qt_add_resources(pevrix_${name} ${resource} PREFIX ${ARG_PREFIX} BASE ${ARG_BASE}
        FILES ${ARG_FILES} OPTIONS --format-version 1)
endfunction()

# pevrix_windows_resources(TARGET DESCRIPTION)
# Version of a Windows program or library; of a program also the icon and the manifest
# (TARGET.manifest, beside the CMakeLists.txt).
function(pevrix_windows_resources target description)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE)
        set(file_type VFT_APP)
        set(file_name ${target}.exe)
        configure_file(${PROJECT_SOURCE_DIR}/cmake/program.rc.in ${target}-program.rc @ONLY)
        target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}-program.rc)
    else()
        set(file_type VFT_DLL)
        set(file_name ${target}.dll)
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    if(MSVC)
        target_link_options(${target} PRIVATE /MANIFEST:NO) # no second one beside ours
    endif()
endfunction()

# pevrix_test(NAME SOURCES file... LINKS target...)
# A GoogleTest program; every test in it is a ctest test. Qt's own display is never needed. For
# Windows the whole program is one ctest test: starting it takes Wine about a second.
function(pevrix_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LINKS")
    pevrix_executable(${name} SOURCES ${ARG_SOURCES} LINKS ${ARG_LINKS} pevrix_test_main)
    if(WIN32)
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES
            TIMEOUT 600 ENVIRONMENT "${PEVRIX_TEST_ENVIRONMENT}")
        return()
    endif()
    # Unescaped, the list would be taken for several properties, and only its first entry would count.
    string(REPLACE ";" "\\;" environment "${PEVRIX_TEST_ENVIRONMENT}")
    gtest_discover_tests(${name}
        TEST_PREFIX "${name}."
        DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 300 ENVIRONMENT "${environment}")
endfunction()
