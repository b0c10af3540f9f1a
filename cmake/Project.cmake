# Defines functions for the CMakeLists.txt of every folder. Most folders have one library. Unit tests are in the folder
# of the tested source.

# These options apply to the project's code. Third-party code is built without these options.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_20)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})
if(MSVC)
    target_compile_options(project_options INTERFACE /W4 /WX /permissive- /EHsc /utf-8)
else()
    target_compile_options(project_options INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wcast-qual -Wunused -Werror
        $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual>)
endif()
if(WIN32)
    # Windows 7 is the oldest supported system. A Windows function without a suffix is the wide function.
    target_compile_definitions(project_options INTERFACE
        UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601)
    # The programs must not need a DLL of the compiler. Definition files contain undecorated export names. For each
    # name, the linker finds the decorated function.
    if(MSVC)
        set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
    else()
        target_link_options(project_options INTERFACE
            -static $<$<AND:$<CONFIG:Release>,$<NOT:$<BOOL:$<TARGET_PROPERTY:SYMBOLS>>>>:-s> -Wl,--enable-stdcall-fixup)
    endif()
endif()
if(WIN32 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 merges functions with equal code even if their calling conventions differ. For example, GCC replaced an
    # empty lambda in a std::function by a method that ends with "ret 4". The caller's stack pointer was then wrong.
    add_compile_options(-fno-ipa-icf)
    # -O3 would make the DLL a tenth larger, but clients would notice no gain in speed. Only host/com/ keeps -O3.
    string(REPLACE "-O3" "-O2" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
endif()
# These compiler options apply to the libraries and the fuzz targets. The tests are compiled without these options.
set(instrumentation)
if(K4T_SANITIZE)
    list(APPEND instrumentation -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(K4T_FUZZ)
    # With this option, the libraries report the executed branches to the fuzzer.
    list(APPEND instrumentation -fsanitize=fuzzer-no-link)
endif()
if(K4T_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

# The symbols of shipped programs contain function names and line numbers (see split_symbols). Paths are relative to the
# project's folder.
set(symbols)
if(WIN32 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release")
    set(symbols $<$<COMPILE_LANGUAGE:C,CXX>:-g1> $<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>)
endif()

# compile_together(TARGET): if K4T_UNITY is on, compiles all sources of TARGET as one file. The compiler then reads each
# header only once.
function(compile_together target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${K4T_UNITY} UNITY_BUILD_BATCH_SIZE 0)
endfunction()

# folder_library(NAME [SMALL] SOURCES … [LINK …]): creates the static library of a folder. SMALL optimises for size. It is
# for folders whose time is spent in system calls.
function(folder_library name)
    cmake_parse_arguments(ARG "SMALL" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    if(ARG_SMALL AND NOT MSVC)
        target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-Os>)
    endif()
    target_link_libraries(${name} PUBLIC project_options ${ARG_LINK})
    target_compile_options(${name} PRIVATE ${instrumentation} ${symbols})
    compile_together(${name})
endfunction()

# split_symbols(TARGET): moves the symbols of a shipped TARGET into a file in the folder symbols/. The program keeps a
# link that debuggers use to find that file.
function(split_symbols target)
    if(NOT symbols)
        return()
    endif()
    set(file ${CMAKE_BINARY_DIR}/symbols/$<TARGET_FILE_NAME:${target}>.debug)
    target_compile_options(${target} PRIVATE ${symbols})
    set_target_properties(${target} PROPERTIES SYMBOLS ON)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/symbols
        COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:${target}> ${file}
        COMMAND ${CMAKE_OBJCOPY} --strip-all --add-gnu-debuglink=${file} $<TARGET_FILE:${target}>
        VERBATIM)
endfunction()

# test_sources(TARGET): calls compile_together and sets the compiler options for tests. GCC and clang compile the
# tests for Windows without optimisation, because compiling the tests takes longer than running the tests.
function(test_sources target)
    target_link_libraries(${target} PRIVATE project_options)
    if(WIN32 AND NOT MSVC)
        target_compile_options(${target} PRIVATE -O0)
    endif()
    compile_together(${target})
endfunction()

# unit_tests([PLATFORM …] [SMOKE …] [PORTABLE …]): adds the unit tests of a folder. The tests of all folders are linked
# into one program.
#     PLATFORM  run natively with the in-memory back end, and under Wine with the Win32 back end
#     SMOKE     use no platform; run natively, and under Wine as 32-bit code
#     PORTABLE  use no platform or only the in-memory back end; run natively only
function(unit_tests)
    cmake_parse_arguments(ARG "" "" "PLATFORM;SMOKE;PORTABLE" ${ARGN})
    set(files ${ARG_PLATFORM} ${ARG_SMOKE})
    if(NOT WIN32)
        list(APPEND files ${ARG_PORTABLE})
    endif()
    if(NOT K4T_TESTS OR NOT files)
        return()
    endif()
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE folder)
    string(REPLACE "/" "_" name ${folder}_unit_tests)
    add_library(${name} OBJECT ${files})
    target_link_libraries(${name} PRIVATE test_support)
    test_sources(${name})
    set_property(GLOBAL APPEND PROPERTY unit_tests ${name})
endfunction()

# project_test(NAME name COMMAND … [NEEDS targets…] [WINE]): adds a test and a target needs_NAME. The target builds
# everything that the test needs. With WINE, the test runs in a new Wine prefix on a new display.
function(project_test)
    cmake_parse_arguments(ARG "WINE" "NAME" "COMMAND;NEEDS" ${ARGN})
    set(command ${ARG_COMMAND})
    if(ARG_WINE)
        set(command ${PROJECT_SOURCE_DIR}/scripts/wine-test ${CMAKE_BINARY_DIR}/prefixes/${ARG_NAME} ${ARG_COMMAND})
    endif()
    add_test(NAME ${ARG_NAME} COMMAND ${command})
    set_tests_properties(${ARG_NAME} PROPERTIES ENVIRONMENT PYTHONDONTWRITEBYTECODE=1)
    add_custom_target(needs_${ARG_NAME} DEPENDS ${ARG_NEEDS})
endfunction()

# wine_test(PROGRAM [NEEDS targets…]): adds a test with the name PROGRAM that runs PROGRAM under Wine.
function(wine_test program)
    cmake_parse_arguments(ARG "" "" "NEEDS" ${ARGN})
    project_test(NAME ${program} WINE NEEDS ${program} ${ARG_NEEDS}
        COMMAND ${PROJECT_SOURCE_DIR}/scripts/wine-run $<TARGET_FILE:${program}>)
endfunction()

# fuzz_target(NAME SOURCES … LINK …): adds a libFuzzer program. Only the fuzz preset builds it.
function(fuzz_target name)
    if(NOT K4T_FUZZ)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE project_options ${ARG_LINK})
    target_compile_options(${name} PRIVATE ${instrumentation})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()
