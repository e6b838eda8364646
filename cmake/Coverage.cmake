# Every program counts what it runs of its sources; tools/coverage adds the counts up.
if(RTTI_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
    add_link_options(-fprofile-instr-generate)
endif()
