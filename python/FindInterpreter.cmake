# find_python_with_headers(): finds Python3 with what the package is compiled with, and in a build with
# tests with what they need. The first interpreter in the path need not be one that has it; Debian's is
# tried after it. -DPython3_EXECUTABLE names another one.
function(is_suited result interpreter)
    set(modules "import sysconfig, os"
        "assert os.path.exists(os.path.join(sysconfig.get_paths()['include'], 'Python.h'))")
    if(RTTI_BUILD_TESTS)
        list(APPEND modules "import pytest")
    endif()
    list(JOIN modules "\n" program)
    execute_process(COMMAND ${interpreter} -c "${program}"
        RESULT_VARIABLE status OUTPUT_QUIET ERROR_QUIET)
    if(NOT status EQUAL 0)
        set(${result} FALSE PARENT_SCOPE)
    endif()
endfunction()

macro(find_python_with_headers)
    if(NOT Python3_EXECUTABLE)
        find_program(RTTI_PYTHON3 python3 VALIDATOR is_suited)
        if(NOT RTTI_PYTHON3)
            find_program(RTTI_PYTHON3 python3 PATHS /usr/bin NO_DEFAULT_PATH VALIDATOR is_suited)
        endif()
        if(NOT RTTI_PYTHON3)
            message(FATAL_ERROR "The Python package needs a Python 3 with its headers, and for its "
                "tests with pytest (on Debian python3-dev and python3-pytest); "
                "-DPython3_EXECUTABLE names one, -DRTTI_BUILD_PYTHON=OFF builds without it")
        endif()
        set(Python3_EXECUTABLE ${RTTI_PYTHON3})
    endif()
    find_package(Python3 3.10 REQUIRED COMPONENTS Interpreter Development.Module)
    # pybind11 looks for Python under its other name.
    set(PYBIND11_FINDPYTHON ON)
    set(Python_EXECUTABLE ${Python3_EXECUTABLE})
endmacro()
