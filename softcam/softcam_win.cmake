# Loaded into the programs that read the camera: it needs nothing beside it, whatever the rest of this
# build does.
add_library(softcam SHARED
    AbsentCard.cpp
    CameraFilter_win.cpp
    CameraPinConnection_win.cpp
    CameraPinFormats_win.cpp
    CameraPin_win.cpp
    CameraReader_win.cpp
    CameraSender_win.cpp
    ComServer_win.cpp
    Exports.cpp
    KernelObjects_win.cpp
    MediaType_win.cpp
    PictureStream_win.cpp
    Registration_win.cpp
    Softcam_win.def)
target_include_directories(softcam PUBLIC ${PROJECT_SOURCE_DIR})
target_link_libraries(softcam PRIVATE
    pevrix_flags pevrix_pictures pevrix_system advapi32 ole32 strmiids uuid)
set_target_properties(softcam PROPERTIES PREFIX "" AUTOMOC OFF)
pevrix_windows_resources(softcam "Pevrix virtual camera")

set(parts softcam pevrix_pictures)
if(PEVRIX_LIBYUV_SOURCE)
    list(APPEND parts yuv)
endif()
if(MSVC)
    set_target_properties(${parts} PROPERTIES MSVC_RUNTIME_LIBRARY MultiThreaded)
else()
    foreach(part ${parts})
        target_compile_options(${part} PRIVATE -ffunction-sections -fdata-sections
            -fstack-protector-strong)
        if(CMAKE_SIZEOF_VOID_P EQUAL 4)
            # Callers built by others align the stack to 4 bytes only, which SSE's registers do not bear.
            target_compile_options(${part} PRIVATE -mstackrealign -msse2)
        endif()
    endforeach()
    # The fixup: in 32 bits the names of COM's functions get their argument's size otherwise.
    target_link_options(softcam PRIVATE -static -s -Wl,--gc-sections -Wl,--enable-stdcall-fixup)
endif()
