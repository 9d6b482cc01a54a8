# Warnings and sanitizers, carried by one interface target that every library links.

add_library(vistara_compiler INTERFACE)
target_compile_features(vistara_compiler INTERFACE cxx_std_20)
target_include_directories(vistara_compiler INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(vistara_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual
    -Woverloaded-virtual -Wunused -Wformat=2 -Wimplicit-fallthrough)
if(VISTARA_WARNINGS_AS_ERRORS)
    target_compile_options(vistara_compiler INTERFACE -Werror)
endif()
if(VISTARA_SANITIZE)
    target_compile_options(vistara_compiler INTERFACE
        -fsanitize=${VISTARA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vistara_compiler INTERFACE -fsanitize=${VISTARA_SANITIZE})
endif()
if(VISTARA_FUZZERS)
    target_compile_options(vistara_compiler INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    target_compile_definitions(vistara_compiler INTERFACE
        _GLIBCXX_ASSERTIONS FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION)
    target_link_options(vistara_compiler INTERFACE -fsanitize=address,undefined)
endif()

# One library per folder of src/: its name, then the libraries of lower levels that it links. SOURCES
# compute and name no widget, WINDOWS show; a header without a source stands there too when it names
# one. QOBJECTS says that its headers declare Q_OBJECT classes.
function(vistara_library name)
    cmake_parse_arguments(ARG "QOBJECTS" "" "SOURCES;WINDOWS;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES} ${ARG_WINDOWS})
    set_target_properties(${name} PROPERTIES AUTOMOC ${ARG_QOBJECTS})
    target_link_libraries(${name} PUBLIC vistara_compiler ${ARG_LINK})
endfunction()

# One test program per library. Windows run offscreen, so no display is needed.
function(vistara_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE vistara_compiler ${ARG_LINK})
    gtest_discover_tests(${name}
        DISCOVERY_TIMEOUT 120
        PROPERTIES
            TIMEOUT 300
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
