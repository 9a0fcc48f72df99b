# What the instrument is built from; scripts/deps.sh installs all of it.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2>=2.26)
pkg_check_modules(HWY REQUIRED IMPORTED_TARGET libhwy)
pkg_check_modules(SDL2TTF REQUIRED IMPORTED_TARGET SDL2_ttf)
# SDL's main header brings in every vector intrinsic of the processor, which nothing here takes from it: leaving them
# out saves a third of a second for each file that draws.
foreach(library IN ITEMS PkgConfig::SDL2 PkgConfig::SDL2TTF)
  target_compile_definitions(${library} INTERFACE SDL_DISABLE_MMINTRIN_H SDL_DISABLE_XMMINTRIN_H
    SDL_DISABLE_EMMINTRIN_H SDL_DISABLE_PMMINTRIN_H SDL_DISABLE_IMMINTRIN_H)
endforeach()
if(NOT WIN32)
  pkg_check_modules(GTK3 REQUIRED IMPORTED_TARGET gtk+-3.0)
  pkg_check_modules(GSTREAMER REQUIRED IMPORTED_TARGET gstreamer-1.0)
  pkg_check_modules(FONTCONFIG REQUIRED IMPORTED_TARGET fontconfig)
endif()

# minimp3 is one header: the system's if there is one, else the copy that scripts/deps.sh unpacked.
find_path(MINIMP3_INCLUDE_DIR minimp3.h
  PATHS /usr/include /usr/local/include /usr/include/minimp3 "${CMAKE_SOURCE_DIR}/.deps/minimp3"
  NO_DEFAULT_PATH)
if(NOT MINIMP3_INCLUDE_DIR)
  message(FATAL_ERROR "minimp3.h not found: run scripts/deps.sh first")
endif()
add_library(minimp3 INTERFACE)
target_include_directories(minimp3 SYSTEM INTERFACE "${MINIMP3_INCLUDE_DIR}")

if(VELORIA_TESTS)
  find_package(GTest REQUIRED)
  pkg_check_modules(PNG REQUIRED IMPORTED_TARGET libpng)  # the kept pictures
endif()
if(VELORIA_BENCH)
  find_package(benchmark REQUIRED)
endif()
