pkg_check_modules(PIPEWIRE REQUIRED IMPORTED_TARGET libpipewire-0.3>=1.2)
# What hands the pictures out, which tests reach into.
pevrix_room(outlet
    SOURCES CameraOutlet_linux.cpp PipeWireParams.cpp PipeWireSource.cpp V4l2Output.cpp
    LINKS pevrix_pictures PkgConfig::PIPEWIRE)
set_target_properties(pevrix_outlet PROPERTIES
    POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)

add_library(softcam SHARED Camera_linux.cpp Exports.cpp)
target_include_directories(softcam PUBLIC ${PROJECT_SOURCE_DIR})
target_link_libraries(softcam PRIVATE pevrix_flags pevrix_outlet)

# Only the four functions of softcam.h are visible.
set_target_properties(softcam PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    LINK_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/softcam.map)
# Never unloaded: its thread serves readers beyond the last camera, and runs when a user closes it.
target_link_options(softcam PRIVATE
    -Wl,--version-script=${CMAKE_CURRENT_SOURCE_DIR}/softcam.map -Wl,-z,nodelete)
