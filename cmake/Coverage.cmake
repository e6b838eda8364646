# Every program counts the lines that it runs; tools/coverage adds the counts up.
if(RTTI_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
