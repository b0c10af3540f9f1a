# Selects clang for the target of toolchain-mingw-i686.cmake. Clang has other warnings than GCC and refuses some code
# that GCC accepts. The headers and libraries are from MinGW-w64's g++.
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw-i686.cmake)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET i686-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET i686-w64-mingw32)

execute_process(COMMAND i686-w64-mingw32-g++-posix -print-file-name=include/c++
    OUTPUT_VARIABLE mingw_headers OUTPUT_STRIP_TRAILING_WHITESPACE)
cmake_path(GET mingw_headers PARENT_PATH mingw_folder)
cmake_path(GET mingw_folder PARENT_PATH mingw_folder)
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES
    ${mingw_headers} ${mingw_headers}/i686-w64-mingw32 ${mingw_headers}/backward)
# libstdc++ is built with emulated thread-local variables.
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -femulated-tls -Wno-unused-command-line-argument")
foreach(kind EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT -L${mingw_folder})
endforeach()
set(CMAKE_CXX_STANDARD_LIBRARIES 
    "-Wl,--start-group -lstdc++ -lgcc_eh -lgcc -lpthread -Wl,--end-group")
