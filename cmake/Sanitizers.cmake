# Any report ends the program, so that no test passes over one.
if(RTTI_SANITIZE)
    add_compile_options(-fsanitize=${RTTI_SANITIZE} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${RTTI_SANITIZE})
endif()
if(RTTI_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
