# Language, warnings and sanitizers, the same for every target.
option(ORVANTA_BUILD_TESTS "Build the tests" OFF)
option(ORVANTA_BUILD_FUZZERS "Build the libFuzzer targets (clang)" OFF)
option(ORVANTA_RUN_FUZZERS "Run the fuzz tree's targets as tests" OFF)
option(ORVANTA_BUILD_BENCHMARKS "Build the micro benchmarks" OFF)
option(ORVANTA_PRECOMPILE "Precompile what many sources include" OFF)
set(ORVANTA_SANITIZE "" CACHE STRING "Sanitizers, comma separated; empty for none")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
# Nothing that moc and uic read is made by a library below, so they need not wait for it, nor the sources for them.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)

find_package(Threads REQUIRED)

add_library(orvanta_options INTERFACE)
target_include_directories(orvanta_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(orvanta_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wnull-dereference -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports null dereferences and array bounds inside inlined library code when it optimises.
    target_compile_options(orvanta_options INTERFACE -Wno-null-dereference -Wno-array-bounds
        -Wno-stringop-overflow -Wno-restrict -Wno-maybe-uninitialized)
endif()
# Results must be the same bit for bit on every path: no contraction across statements.
target_compile_options(orvanta_options INTERFACE -ffp-contract=off)

if(ORVANTA_SANITIZE)
    set(sanitize -fsanitize=${ORVANTA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    if(ORVANTA_BUILD_FUZZERS)
        # Coverage in every library, so that the fuzzer sees the code behind the entry point.
        list(APPEND sanitize -fsanitize=fuzzer-no-link)
    endif()
    target_compile_options(orvanta_options INTERFACE ${sanitize})
    target_link_options(orvanta_options INTERFACE ${sanitize})
endif()
