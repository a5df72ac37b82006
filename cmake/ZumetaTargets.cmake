# SPDX-License-Identifier: GPL-3.0-or-later
# How every target of the house is declared: one warning set, one include root, sources listed by hand.

add_library(zumeta-options INTERFACE)
target_include_directories(zumeta-options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(zumeta-options INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:ZUMETA_HOLDS_GENERATED_CODE>>>:-Wshadow;-Wconversion>")
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 takes an empty std::optional for uninitialised memory when it inlines its destructor, and sees overlapping
    # copies in operator+ of a literal and a std::string.
    target_compile_options(zumeta-options INTERFACE -Wno-maybe-uninitialized -Wno-restrict)
endif()
target_compile_definitions(zumeta-options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)
if(ZUMETA_SANITIZE)
    add_compile_options(-fsanitize=${ZUMETA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${ZUMETA_SANITIZE})
endif()
if(ZUMETA_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize=function -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# zumeta_add_floor(NAME [MOC] SOURCES file... [PUBLIC lib...] [PRIVATE lib...]): the static library of one folder.
# MOC: it has classes with Q_OBJECT.
function(zumeta_add_floor name)
    cmake_parse_arguments(FLOOR "MOC" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${FLOOR_SOURCES})
    if(FLOOR_MOC)
        # Without the compiler's own macros, because this moc cannot read the C++20 standard headers.
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOMOC_COMPILER_PREDEFINES OFF)
    endif()
    target_link_libraries(${name} PUBLIC zumeta-options ${FLOOR_PUBLIC} PRIVATE ${FLOOR_PRIVATE})
endfunction()

# zumeta_add_tests(NAME SOURCES file... LIBRARIES lib... [FILTER pattern] [PREFIX text] [TIMEOUT seconds]): one test
# program. ctest knows each of its tests, or those that the pattern names, with the text before their names.
function(zumeta_add_tests name)
    cmake_parse_arguments(TESTS "" "FILTER;PREFIX;TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
    if(NOT TESTS_TIMEOUT)
        set(TESTS_TIMEOUT 120)
    endif()
    add_executable(${name} ${TESTS_SOURCES})
    # Tests themselves need no speed, and what the compiler saves on three hundred files is minutes.
    target_compile_options(${name} PRIVATE "$<$<CONFIG:RelWithDebInfo>:-O1;-g1>")
    target_link_libraries(${name} PRIVATE zumeta-options zumeta-test-support ${TESTS_LIBRARIES} GTest::gmock)
    gtest_discover_tests(${name} TEST_FILTER "${TESTS_FILTER}" TEST_PREFIX "${TESTS_PREFIX}"
        DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${TESTS_TIMEOUT}
        ENVIRONMENT "LC_ALL=C.UTF-8;QT_QPA_PLATFORM=offscreen")
endfunction()
