# What floats in the sky, burns, covers glass, stands about, and the paper of charts.
file(GLOB EFFECT_FILES CONFIGURE_DEPENDS art/effects/*.cpp)
add_executable(effects_make ${EFFECT_FILES} art/texel_picture.cpp art/canvas.cpp)
target_include_directories(effects_make PRIVATE ${CMAKE_SOURCE_DIR}/src art)
target_link_libraries(effects_make PRIVATE PkgConfig::ART PNG::PNG Threads::Threads)
target_compile_options(effects_make PRIVATE -O2)  # millions of texels: fast in every kind of build
set(EFFECTS_DRAWN ${CMAKE_CURRENT_BINARY_DIR}/effects.drawn)
add_custom_command(OUTPUT ${EFFECTS_DRAWN}
                   COMMAND effects_make ${BITMAPS}/world
                   COMMAND ${CMAKE_COMMAND} -E touch ${EFFECTS_DRAWN}
                   DEPENDS effects_make COMMENT "Content effects" VERBATIM)
list(APPEND CONTENT ${EFFECTS_DRAWN})
