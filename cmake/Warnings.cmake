# The warnings that every target of the project is built with; a parent project has its own.
if(PROJECT_IS_TOP_LEVEL)
    add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Woverloaded-virtual)
endif()
if(RTTI_WERROR)
    add_compile_options(-Werror)
endif()
