# One target a room. A room's headers are included by their path from the project's root
# ("model/language/row.h"), and a room links what it may use.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
find_package(Threads REQUIRED)
if(WIN32)
  add_compile_definitions(_WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX UNICODE _UNICODE)
endif()

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
  find_program(CALYX_CCACHE ccache)
  if(CALYX_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CALYX_CCACHE})
  endif()
endif()

add_library(calyx_flags INTERFACE)
target_compile_options(calyx_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies, endless lengths and unset members in std::string where there are none,
  # once it optimises. Unoptimised builds and Clang keep these warnings.
  target_compile_options(calyx_flags INTERFACE -Wno-restrict
    $<$<NOT:$<CONFIG:Debug>>:-Wno-stringop-overflow>
    $<$<NOT:$<CONFIG:Debug>>:-Wno-array-bounds>
    $<$<NOT:$<CONFIG:Debug>>:-Wno-maybe-uninitialized>)
endif()
if(CALYX_SANITIZE)
  target_compile_options(calyx_flags INTERFACE -fsanitize=${CALYX_SANITIZE}
    -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(calyx_flags INTERFACE -fsanitize=${CALYX_SANITIZE})
endif()

# calyx_header_library(NAME FILE ENTRY...): a library of headers alone, as the distribution's package has it.
# A compiler for another system must not search the native include folder: it gets links to the entries.
function(calyx_header_library NAME FILE)
  find_path(CALYX_INCLUDE_${NAME} ${FILE} REQUIRED PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
  set(folder ${CALYX_INCLUDE_${NAME}})
  if(CMAKE_CROSSCOMPILING)
    set(folder ${PROJECT_BINARY_DIR}/include/${NAME})
    file(MAKE_DIRECTORY ${folder})
    foreach(entry IN LISTS ARGN)
      file(CREATE_LINK ${CALYX_INCLUDE_${NAME}}/${entry} ${folder}/${entry} SYMBOLIC)
    endforeach()
  endif()
  add_library(calyx_${NAME} INTERFACE)
  target_include_directories(calyx_${NAME} SYSTEM INTERFACE ${folder})
endfunction()

calyx_header_library(asio asio.hpp asio.hpp asio)
# One way of allocating in every file: what Asio chooses by itself depends on the headers before it.
target_compile_definitions(calyx_asio INTERFACE ASIO_STANDALONE ASIO_NO_DEPRECATED
  ASIO_DISABLE_STD_ALIGNED_ALLOC)
target_link_libraries(calyx_asio INTERFACE Threads::Threads)
if(WIN32)
  target_link_libraries(calyx_asio INTERFACE ws2_32 mswsock)
endif()
calyx_header_library(cli11 CLI/CLI.hpp CLI)
calyx_header_library(json nlohmann/json.hpp nlohmann)

# calyx_room(NAME calyx_x SOURCES ... LINKS ...): a static library.
function(calyx_room)
  cmake_parse_arguments(ROOM "" "NAME" "SOURCES;LINKS" ${ARGN})
  add_library(${ROOM_NAME} STATIC ${ROOM_SOURCES})
  target_include_directories(${ROOM_NAME} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${ROOM_NAME} PUBLIC ${ROOM_LINKS} PRIVATE calyx_flags)
endfunction()

# calyx_program(NAME x SOURCES ... LINKS ...): an executable. For Windows, DESCRIPTION gives it an icon, a
# version and a manifest; it needs the system's own libraries only unless SHARED says that it comes with others.
function(calyx_program)
  cmake_parse_arguments(ROOM "SHARED" "NAME;DESCRIPTION" "SOURCES;LINKS" ${ARGN})
  add_executable(${ROOM_NAME} ${ROOM_SOURCES})
  target_include_directories(${ROOM_NAME} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${ROOM_NAME} PRIVATE ${ROOM_LINKS} calyx_flags)
  if(WIN32 AND NOT ROOM_SHARED)
    target_link_options(${ROOM_NAME} PRIVATE -static)
  endif()
  if(WIN32 AND ROOM_DESCRIPTION)
    # On its own, since the resource compiler does not take the flags of the others.
    set(PROGRAM_NAME ${ROOM_NAME})
    set(PROGRAM_DESCRIPTION ${ROOM_DESCRIPTION})
    configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${ROOM_NAME}.rc @ONLY)
    add_library(${ROOM_NAME}_resources OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${ROOM_NAME}.rc)
    target_sources(${ROOM_NAME} PRIVATE $<TARGET_OBJECTS:${ROOM_NAME}_resources>)
  endif()
endfunction()

# calyx_test(NAME x_tests SOURCES ... LINKS ...): a GoogleTest program whose tests CTest lists one by one.
function(calyx_test)
  cmake_parse_arguments(ROOM "" "NAME" "SOURCES;LINKS" ${ARGN})
  calyx_program(NAME ${ROOM_NAME} SOURCES ${ROOM_SOURCES} LINKS ${ROOM_LINKS} GTest::gtest_main)
  target_compile_definitions(${ROOM_NAME} PRIVATE
    CALYX_SOURCE_DIR="${PROJECT_SOURCE_DIR}" CALYX_DATA_DIR="${PROJECT_SOURCE_DIR}/data")
  gtest_discover_tests(${ROOM_NAME} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 60)
endfunction()
if(CALYX_TESTS)
  include(GoogleTest)
endif()
