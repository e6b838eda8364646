# zlib (zlib1g-dev) by its headers alone: no test that runs there writes a page.
if(NOT TARGET ZLIB::ZLIB)
    add_library(ZLIB::ZLIB INTERFACE IMPORTED GLOBAL)
    use_headers(ZLIB::ZLIB zlib.h zconf.h)
endif()
