# fmt (libfmt-dev) by its headers alone.
if(NOT TARGET fmt::fmt)
    add_library(fmt::fmt INTERFACE IMPORTED GLOBAL)
    target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
    use_headers(fmt::fmt fmt)
endif()
