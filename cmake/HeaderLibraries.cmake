# Header-only libraries of the distribution. A cross build must not see the rest of the system's
# headers, so it gets a folder with links to just these.

find_path(QVL_CLI11_DIR CLI/CLI.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(QVL_JSON_DIR nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)

set(QVL_HEADERS_DIR "${PROJECT_BINARY_DIR}/header_libraries")
file(MAKE_DIRECTORY "${QVL_HEADERS_DIR}")
file(CREATE_LINK "${QVL_CLI11_DIR}/CLI" "${QVL_HEADERS_DIR}/CLI" SYMBOLIC)
file(CREATE_LINK "${QVL_JSON_DIR}/nlohmann" "${QVL_HEADERS_DIR}/nlohmann" SYMBOLIC)

add_library(qvl_header_libraries INTERFACE)
target_include_directories(qvl_header_libraries SYSTEM INTERFACE "${QVL_HEADERS_DIR}")
