# Compiler settings and the three functions with which folders declare their targets.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# Results of the fit must not depend on the processor: no fused multiply-add, no fast-math.
add_compile_options(-Wall -Wextra -Werror -ffp-contract=off)
# Assertions print paths relative to the repository root, whatever folder it was built from.
add_compile_options(-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=)

if(ROOM_ADJUSTMENT_SANITIZE)
  add_compile_options(-O1 -g -fno-omit-frame-pointer -fsanitize=${ROOM_ADJUSTMENT_SANITIZE}
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ROOM_ADJUSTMENT_SANITIZE})
endif()
if(ROOM_ADJUSTMENT_FUZZ)
  add_compile_options(-O1 -g -fsanitize=fuzzer-no-link,address,undefined
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

# ra_library(NAME SOURCES... [LINK ...] [STANDARD N] [QT])
# A static library of the module. The module's own code is C++11, which is what the compilers of
# the Qt 4.8 hosts are known to take; STANDARD raises it where no host header is included. QT runs
# moc and uic over the sources.
function(ra_library name)
  cmake_parse_arguments(arg "QT" "STANDARD" "LINK" ${ARGN})
  if(NOT arg_STANDARD)
    set(arg_STANDARD 11)
  endif()
  add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${arg_LINK})
  set_target_properties(${name} PROPERTIES CXX_STANDARD ${arg_STANDARD})
  if(arg_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
  endif()
endfunction()

# ra_add_test(SOURCE [LINK ...] [ARGS ...] [TIMEOUT SECONDS])
# One Qt Test program per unit, named after its file.
function(ra_add_test source)
  cmake_parse_arguments(arg "" "TIMEOUT" "LINK;ARGS" ${ARGN})
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source})
  set_target_properties(${name} PROPERTIES AUTOMOC ON
                        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${arg_LINK} ra_test_support)
  add_test(NAME ${name} COMMAND ${name} ${arg_ARGS})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT})
endfunction()

# ra_add_benchmark(SOURCE [LINK ...])
function(ra_add_benchmark source)
  cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source})
  set_target_properties(${name} PROPERTIES
                        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/benchmarks)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${arg_LINK} benchmark::benchmark)
endfunction()
