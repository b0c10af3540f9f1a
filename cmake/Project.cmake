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
    # No compiler's DLL beside ours, and no symbols in what ships. Definition files give the plain names of exports, for
    # which the linker finds the decorated ones.
    if(MSVC)
        set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
    else()
        target_link_options(project_options INTERFACE
            -static $<$<CONFIG:Release>:-s> -Wl,--enable-stdcall-fixup)
    endif()
endif()
if(WIN32 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 folds functions whose code is alike although they are called differently: an empty lambda in a std::function
    # became a method's "ret 4", which leaves the stack of its caller askew.
    add_compile_options(-fno-ipa-icf)
endif()
if(K4T_SANITIZE)
    # Also for the test framework, so that the whole process is instrumented alike.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(K4T_FUZZ)
    # The libraries must tell the fuzzer which of their branches an input took.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(K4T_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

# folder_library(NAME SOURCES … [LINK …]): the static library of one folder.
function(folder_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC project_options ${ARG_LINK})
endfunction()

# unit_tests(FILES …): tests beside their source; all folders' tests are linked into one program.
function(unit_tests)
    foreach(file ${ARGN})
        set_property(GLOBAL APPEND PROPERTY k4t_unit_tests ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    endforeach()
endfunction()

# fuzz_target(NAME SOURCES … LINK …): a libFuzzer program; only made by the fuzz preset.
function(fuzz_target name)
    if(NOT K4T_FUZZ)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE project_options ${ARG_LINK})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()
