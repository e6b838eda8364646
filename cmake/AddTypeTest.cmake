# The tests: GoogleTest, Debian's package, because its cases and failures read well.
find_package(GTest)
if(NOT GTest_FOUND)
    message(FATAL_ERROR "The tests need GoogleTest (on Debian libgtest-dev and libgmock-dev); "
        "-DBUILD_TESTING=OFF builds without them")
endif()
include(GoogleTest)

# The groups of tests that need no more than an optimised build: `ctest -L GROUP` runs one of them,
# the presets "quick" build and run them all. Others have their groups, too, and are left to
# ./check --full.
set(quick_groups library threads writer verifier printers program import documents)
add_custom_target(quick_tests)

# group_tests(GROUP TEST... [PROGRAMS TARGET...]): puts tests into a group; PROGRAMS are built for it, by
# the target test_group_GROUP.
function(group_tests group)
    cmake_parse_arguments(arg "" "" "PROGRAMS" ${ARGN})
    if(arg_UNPARSED_ARGUMENTS)
        set_tests_properties(${arg_UNPARSED_ARGUMENTS} PROPERTIES LABELS ${group})
    endif()
    if(NOT arg_PROGRAMS)
        return()
    endif()
    if(NOT TARGET test_group_${group})
        add_custom_target(test_group_${group})
        if(group IN_LIST quick_groups)
            add_dependencies(quick_tests test_group_${group})
        endif()
    endif()
    add_dependencies(test_group_${group} ${arg_PROGRAMS})
endfunction()

# add_type_test(NAME GROUP SOURCE... [LINK LIBRARY...]): a test program whose cases CTest knows by name;
# one that runs in an emulator is a single test.
# EXAMPLE_TYPEFILES_DIR names the real type files. The headers that every test includes are compiled
# once, with test_support.
function(add_type_test name group)
    cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE
        test_support ${arg_LINK} GTest::gmock GTest::gtest_main)
    target_compile_definitions(${name} PRIVATE
        EXAMPLE_TYPEFILES_DIR="${PROJECT_SOURCE_DIR}/examples/typefiles")
    target_precompile_headers(${name} REUSE_FROM test_support)
    if(CMAKE_CROSSCOMPILING) # An emulator takes longer to start than a case to run.
        add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
        set_tests_properties(${name} PROPERTIES TIMEOUT 900 LABELS ${group})
    else()
        gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300 LABELS ${group})
    endif()
    group_tests(${group} PROGRAMS ${name})
endfunction()

# add_header_test(): every public header compiles on its own, as C++17 and as C++20.
function(add_header_test)
    get_property(libraries GLOBAL PROPERTY RTTI_PUBLISHED_LIBRARIES)
    foreach(standard 17 20)
        set(sources)
        foreach(library IN LISTS libraries)
            get_target_property(headers ${library} HEADER_SET)
            foreach(path IN LISTS headers)
                file(RELATIVE_PATH header ${PROJECT_SOURCE_DIR} ${path})
                string(MAKE_C_IDENTIFIER ${header} unit)
                set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${standard}/${unit}.cpp)
                file(GENERATE OUTPUT ${source}
                    CONTENT "#include <${header}>\n#include <${header}>\n")
                list(APPEND sources ${source})
            endforeach()
        endforeach()
        add_library(headers_cxx${standard} OBJECT ${sources})
        target_link_libraries(headers_cxx${standard} PRIVATE RTTI::OVAT_interface)
        set_target_properties(headers_cxx${standard} PROPERTIES CXX_STANDARD ${standard})
    endforeach()
endfunction()
