# Pavement of runways, taxiways and pads.
file(GLOB PAVEMENT_FILES CONFIGURE_DEPENDS art/pavement/*.cpp)
add_executable(pavement_make ${PAVEMENT_FILES} art/texel_picture.cpp)
target_include_directories(pavement_make PRIVATE art)
target_link_libraries(pavement_make PRIVATE PkgConfig::ART PNG::PNG Threads::Threads)
target_compile_options(pavement_make PRIVATE -O2)  # millions of texels: fast in every kind of build
set(PAVEMENT_DRAWN ${CMAKE_CURRENT_BINARY_DIR}/pavement.drawn)
add_custom_command(OUTPUT ${PAVEMENT_DRAWN}
                   COMMAND pavement_make ${BITMAPS}/runways
                   COMMAND ${CMAKE_COMMAND} -E touch ${PAVEMENT_DRAWN}
                   DEPENDS pavement_make COMMENT "Content pavement" VERBATIM)
list(APPEND CONTENT ${PAVEMENT_DRAWN})
