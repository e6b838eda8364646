# The warnings that every target of the project is built with.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Woverloaded-virtual)
if(RTTI_WERROR)
    add_compile_options(-Werror)
endif()
