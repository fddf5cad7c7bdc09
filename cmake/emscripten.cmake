# Debian's Emscripten, with the exceptions of WebAssembly.
find_path(EMSCRIPTEN_MODULES Platform/Emscripten.cmake REQUIRED NO_CMAKE_FIND_ROOT_PATH
          PATHS /usr/share/emscripten/cmake/Modules $ENV{EMSDK}/upstream/emscripten/cmake/Modules)
set(CMAKE_CXX_FLAGS_INIT -fwasm-exceptions)
set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG" CACHE STRING "")
include(${EMSCRIPTEN_MODULES}/Platform/Emscripten.cmake)
