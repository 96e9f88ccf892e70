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
add_compile_options(-Wall -Wextra -ffp-contract=off)
# What the Qt 4.8 headers and tools make a newer compiler say is not ours to mend.
if(NOT ROOM_ADJUSTMENT_QT EQUAL 4)
  add_compile_options(-Werror)
endif()
# Assertions print paths relative to the repository root, whatever folder it was built from.
add_compile_options(-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=)

if(ROOM_ADJUSTMENT_SANITIZE)
  add_compile_options(-O1 -g -fno-omit-frame-pointer -fsanitize=${ROOM_ADJUSTMENT_SANITIZE}
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ROOM_ADJUSTMENT_SANITIZE})
endif()
if(ROOM_ADJUSTMENT_FUZZ)
  add_compile_options(-O2 -g -fsanitize=fuzzer-no-link,address,undefined
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(TRACKING_MAX_NUMBER=16)
endif()

# Dialogs of one folder hold forms of another by value, so all form headers are generated into one
# folder before any library that uses Qt is compiled.
set(RA_FORMS_DIR ${CMAKE_BINARY_DIR}/forms)
add_custom_target(ra_forms)

# ra_generate_form(NAME.ui) makes ui_NAME.h.
function(ra_generate_form form)
  get_filename_component(name ${form} NAME_WE)
  set(header ${RA_FORMS_DIR}/ui_${name}.h)
  add_custom_command(OUTPUT ${header}
                     COMMAND ${CMAKE_COMMAND} -E make_directory ${RA_FORMS_DIR}
                     COMMAND $<TARGET_FILE:${RA_UIC}> -o ${header}
                             ${CMAKE_CURRENT_SOURCE_DIR}/${form}
                     DEPENDS ${form} VERBATIM)
  add_custom_target(ra_form_${name} DEPENDS ${header})
  add_dependencies(ra_forms ra_form_${name})
endfunction()

# ra_library(NAME SOURCES... [LINK ...] [STANDARD N] [QT])
# A static library of the module. The module's own code is C++11, which is what the compilers of
# the Qt 4.8 hosts are known to take; STANDARD raises it where no host header is included. QT runs
# moc over the headers and uic over the forms.
function(ra_library name)
  cmake_parse_arguments(arg "QT" "STANDARD" "LINK" ${ARGN})
  if(NOT arg_STANDARD)
    set(arg_STANDARD 11)
  endif()
  set(forms ${arg_UNPARSED_ARGUMENTS})
  list(FILTER forms INCLUDE REGEX "\\.ui$")
  list(FILTER arg_UNPARSED_ARGUMENTS EXCLUDE REGEX "\\.ui$")
  foreach(form ${forms})
    ra_generate_form(${form})
  endforeach()

  add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${arg_LINK})
  set_target_properties(${name} PROPERTIES CXX_STANDARD ${arg_STANDARD})
  if(arg_QT)
    add_dependencies(${name} ra_forms)
    target_include_directories(${name} PUBLIC ${RA_FORMS_DIR})
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOGEN_TARGET_DEPENDS ra_forms)
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
