# nlohmann-json (nlohmann-json3-dev), which is headers alone.
if(NOT TARGET nlohmann_json::nlohmann_json)
    add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
    use_headers(nlohmann_json::nlohmann_json nlohmann)
endif()
