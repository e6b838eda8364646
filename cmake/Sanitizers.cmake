# Any report ends the program, so that no test passes over one.
if(RTTI_SANITIZE)
    add_compile_options(-fsanitize=${RTTI_SANITIZE} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${RTTI_SANITIZE})
endif()
if(RTTI_FUZZ)
    # Edges alone: all else that can be followed takes a fifth of the time.
    add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp,indirect-calls,stack-depth)
endif()
