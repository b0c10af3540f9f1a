# What every folder's CMakeLists.txt uses: one library per folder, unit tests beside their source.

# Options that all our own code is built with; third-party code is not.
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
    # Windows 7 is the oldest system served; the wide functions are the only ones called without a suffix.
    target_compile_definitions(project_options INTERFACE
        UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601)
    # No compiler's DLL beside ours. Definition files give the plain names of exports, for which the linker finds the
    # decorated ones.
    if(MSVC)
        set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
    else()
        target_link_options(project_options INTERFACE
            -static $<$<AND:$<CONFIG:Release>,$<NOT:$<BOOL:$<TARGET_PROPERTY:SYMBOLS>>>>:-s> -Wl,--enable-stdcall-fixup)
    endif()
endif()
if(WIN32 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 folds functions whose code is alike although they are called differently: an empty lambda in a std::function
    # became a method's "ret 4", which leaves the stack of its caller askew.
    add_compile_options(-fno-ipa-icf)
endif()
# What the libraries are compiled with beside the options above; the tests are not.
set(instrumentation)
if(K4T_SANITIZE)
    list(APPEND instrumentation -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(K4T_FUZZ)
    # The libraries report to the fuzzer which of their branches an input took.
    list(APPEND instrumentation -fsanitize=fuzzer-no-link)
endif()
if(K4T_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

# What ships has symbols (split_symbols): names of functions, and lines. The paths are those within the project.
set(symbols)
if(WIN32 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release")
    set(symbols $<$<COMPILE_LANGUAGE:C,CXX>:-g1> $<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>)
endif()

# compile_together(TARGET): compiles the sources of TARGET as one, which saves reading the headers again for each.
function(compile_together target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${K4T_UNITY} UNITY_BUILD_BATCH_SIZE 0)
endfunction()

# folder_library(NAME SOURCES … [LINK …]): the static library of one folder.
function(folder_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC project_options ${ARG_LINK})
    target_compile_options(${name} PRIVATE ${instrumentation} ${symbols})
    compile_together(${name})
endfunction()

# split_symbols(TARGET): moves the symbols of TARGET, which ships, into a file of the folder symbols/. The program keeps a
# link by which debuggers find that file.
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

# test_sources(TARGET): compiles the sources of TARGET as tests are compiled: together, and without optimising, because
# compiling them takes longer than running them.
function(test_sources target)
    target_link_libraries(${target} PRIVATE project_options)
    if(WIN32 AND NOT MSVC)
        target_compile_options(${target} PRIVATE -O0)
    endif()
    compile_together(${target})
endfunction()

# unit_tests([PLATFORM …] [SMOKE …] [PORTABLE …]): the tests beside their source. All folders' tests are linked into one
# program.
#     PLATFORM  run on the in-memory back end natively, and on the Win32 back end under Wine
#     SMOKE     touch no platform; run natively, and as 32-bit code under Wine
#     PORTABLE  touch no platform; run natively only
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

# project_test(NAME name COMMAND … [NEEDS targets…] [WINE]): a test, and a target needs_NAME that builds what it needs. With
# WINE it gets a new Wine prefix and a display of its own.
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

# wine_test(PROGRAM [NEEDS targets…]): the test of that name that runs PROGRAM under Wine.
function(wine_test program)
    cmake_parse_arguments(ARG "" "" "NEEDS" ${ARGN})
    project_test(NAME ${program} WINE NEEDS ${program} ${ARG_NEEDS}
        COMMAND ${PROJECT_SOURCE_DIR}/scripts/wine-run $<TARGET_FILE:${program}>)
endfunction()

# fuzz_target(NAME SOURCES … LINK …): a libFuzzer program; only made by the fuzz preset.
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
