# The tests: GoogleTest, Debian's package, because its cases and failures read well.
find_package(GTest REQUIRED)
include(GoogleTest)

# add_type_test(NAME SOURCE... [LINK LIBRARY...]): a test program whose cases CTest knows by name.
function(add_type_test name)
    cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE ${arg_LINK} GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
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
        target_link_libraries(headers_cxx${standard} PRIVATE OVAT_interface)
        set_target_properties(headers_cxx${standard} PROPERTIES CXX_STANDARD ${standard})
    endforeach()
endfunction()
