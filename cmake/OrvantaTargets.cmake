# One way to declare a library, a program and a test. Sources are what lies in the folder: a room's content is
# its list, so that adding a file is one step and no list can disagree with the folder.

# Lets Qt's generators run again when a source comes or goes: they do when a list file changes, as this one then
# does, provided that moc is among them.
function(orvanta_generate_again name sources)
    set(list_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_sources.cmake)
    file(CONFIGURE OUTPUT ${list_file} CONTENT "# ${sources}\n" @ONLY)
    include(${list_file})
endfunction()

# What many sources include, read once per target and not once per source. A source must compile by its own
# includes, so this is only for a build that starts from nothing; every other tree goes without, also the one that
# clang-tidy reads. QApplication is not among them: it brings a global Display.
set(orvanta_common_headers <algorithm> <array> <cmath> <cstdint> <filesystem> <functional> <limits> <map> <memory>
    <optional> <span> <stdexcept> <string> <string_view> <utility> <vector>)
set(orvanta_window_headers <QComboBox> <QDialog> <QHeaderView> <QImage> <QKeyEvent> <QLabel> <QLineEdit> <QLocale>
    <QPainter> <QPushButton> <QSplitter> <QTimer> <QTreeWidget> <QVBoxLayout>)
function(orvanta_precompile name sources)
    list(LENGTH sources count)
    if(ORVANTA_PRECOMPILE AND count GREATER 20)
        target_precompile_headers(${name} PRIVATE ${orvanta_common_headers} ${ARGN})
        # Recordings have signals, which Qt's own short word would now take in every source.
        target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS)
    endif()
endfunction()

# orvanta_add_library(name [KIND SHARED|STATIC|MODULE|INTERFACE] [QT] [PUBLIC libs...] [PRIVATE libs...]
# [EXCLUDE regex]). With QT, Qt's generators run: moc, rcc, and uic over the forms and dialogs of
# resources/.
function(orvanta_add_library name)
    cmake_parse_arguments(arg "QT" "KIND;EXCLUDE" "PUBLIC;PRIVATE" ${ARGN})
    if(NOT arg_KIND)
        set(arg_KIND SHARED)
    endif()
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    if(arg_EXCLUDE)
        list(FILTER sources EXCLUDE REGEX ${arg_EXCLUDE})
    endif()
    add_library(${name} ${arg_KIND} ${sources})
    if(arg_QT)
        orvanta_generate_again(${name} "${sources}")
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON
            AUTOUIC_SEARCH_PATHS "${PROJECT_SOURCE_DIR}/resources/forms;${PROJECT_SOURCE_DIR}/resources/dialogs")
        if(ORVANTA_BUILD_FUZZERS)
            add_dependencies(generated_sources ${name}_autogen)
        endif()
        orvanta_precompile(${name} "${sources}" ${orvanta_window_headers})
    else()
        orvanta_precompile(${name} "${sources}")
    endif()
    target_link_libraries(${name} PUBLIC orvanta_options ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
endfunction()

# orvanta_add_program(name [LIBS libs...])
function(orvanta_add_program name)
    cmake_parse_arguments(arg "" "" "LIBS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE orvanta_options ${arg_LIBS})
endfunction()

# What the thread sanitizer is not to report stands in the file, and why there.
set(orvanta_thread_sanitizer TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/tsan.supp)

# Makes every suite of a GoogleTest program a ctest of its own, as soon as the program is built; further arguments are
# options of tests/suites/list.py.
function(orvanta_list_suites name)
    set(list_suites ${PROJECT_SOURCE_DIR}/tests/suites/list.py)
    set(list_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake)
    add_custom_command(TARGET ${name} POST_BUILD BYPRODUCTS ${list_file} VERBATIM
        COMMAND ${PYTHON} ${list_suites} $<TARGET_FILE:${name}> ${PROJECT_SOURCE_DIR}/tests/suites/run-suite ${list_file}
            ${ARGN})
    set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${list_suites})
    # A program that was not built is a test that cannot be found.
    set(include_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_tests.cmake)
    file(CONFIGURE OUTPUT ${include_file} @ONLY CONTENT
"if(EXISTS \"@list_file@\")
    include(\"@list_file@\")
else()
    add_test(@name@_is_not_built @name@_is_not_built)
endif()
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include_file})
endfunction()

# orvanta_add_tests(name [QT] [LIBS libs...] [APART suites...]): the *_test.cpp of this folder and below as one GoogleTest
# program, every suite a ctest of its own (docs/decisions/0014-tests-run-by-suites.md), and every case of suites that stand
# apart. With QT there is a QApplication on the offscreen platform, a warning of Qt fails
# the case, and a form of the tests' own may lie beside the test that shows it.
function(orvanta_add_tests name)
    cmake_parse_arguments(arg "QT" "" "LIBS;APART" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    if(NOT sources)
        return()
    endif()
    set(environment --environment ${orvanta_thread_sanitizer})
    if(arg_QT)
        set(main orvanta_qt_test_main)
        list(APPEND environment QT_QPA_PLATFORM=offscreen)
    else()
        set(main GTest::gtest_main)
    endif()
    add_executable(${name} ${sources})
    if(arg_QT)
        orvanta_generate_again(${name} "${sources}")
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
    endif()
    target_link_libraries(${name} PRIVATE orvanta_options orvanta_test_support GTest::gtest GTest::gmock
        ${main} ${arg_LIBS})
    list(LENGTH sources count)
    if(count GREATER 20)
        target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
    endif()
    if(arg_QT)
        orvanta_precompile(${name} "${sources}" ${orvanta_window_headers})
    else()
        orvanta_precompile(${name} "${sources}")
    endif()
    if(ORVANTA_SANITIZE)
        # Checks expand to much code that runs once: the compiler's time counts, not theirs.
        target_compile_options(${name} PRIVATE -Og)
    endif()
    target_compile_definitions(${name} PRIVATE ORVANTA_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
    orvanta_list_suites(${name} --apart ${arg_APART} ${environment})
endfunction()
