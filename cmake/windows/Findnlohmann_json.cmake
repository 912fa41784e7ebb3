# nlohmann-json, which is headers alone.
include(${CMAKE_CURRENT_LIST_DIR}/headers_alone.cmake)
headers_alone(nlohmann_json::nlohmann_json nlohmann)
