# For CMake 3.25 or later. find_package(kelvra) gives the programs kelvra::kelvra and kelvra::kelvra-image, which run
# where the build runs, also when it compiles for another system, and
#
#   kelvra_add_image(<target> LID <file> [SOURCE <file>] [VPDINFO <file>] [OUTPUT <file>] [TIMESTAMP <seconds>] [LINT])
#
# a target that is built by default and makes an image. It is made anew when a file that it is made of, its command or
# kelvra-image itself has changed.
#
#   SOURCE     the RUVPD source; else the LID's name with the extension lidhdr
#   VPDINFO    the VPDINFO source, when it is not the one beside the RUVPD source that VPDINFONM names, or when the
#              build makes it
#   OUTPUT     the image, relative to the current binary folder; else <target>.ruhx. The target's property KELVRA_IMAGE
#              is its whole name; a command that uses the image depends on both.
#   TIMESTAMP  the build time of a LID without a header, seconds since 1970; else the LID's modification time
#   LINT       checks the sources first; an error there stops the build
#
# Inputs are relative to the current source folder or, when they are not there as CMake configures, to the current binary
# folder, where the build makes them. A value that is empty counts as not given. An input may be a generator expression; when the LID is one, SOURCE must be given.
cmake_minimum_required(VERSION 3.25)

# In kelvra's own build the programs are targets already.
foreach(kelvra_program kelvra kelvra-image)
  if(NOT TARGET kelvra::${kelvra_program})
    unset(kelvra_path)
    # The installation puts in where its programs are.
    find_program(kelvra_path ${kelvra_program} PATHS "${CMAKE_CURRENT_LIST_DIR}/@KELVRA_BIN_FROM_PACKAGE@"
      NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH NO_CACHE)
    if(NOT kelvra_path)
      set(kelvra_FOUND FALSE)
      set(kelvra_NOT_FOUND_MESSAGE "${kelvra_program} is not installed beside it.")
      return()
    endif()
    add_executable(kelvra::${kelvra_program} IMPORTED GLOBAL)
    set_target_properties(kelvra::${kelvra_program} PROPERTIES IMPORTED_LOCATION "${kelvra_path}")
  endif()
endforeach()

# The whole name of an input.
function(_kelvra_find_input variable file)
  if(NOT file MATCHES "^\\$<")
    cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE OUTPUT_VARIABLE found)
    if(NOT EXISTS "${found}")
      cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE OUTPUT_VARIABLE found)
    endif()
    set(file "${found}")
  endif()
  set(${variable} "${file}" PARENT_SCOPE)
endfunction()

function(kelvra_add_image target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "LINT" "LID;SOURCE;VPDINFO;OUTPUT;TIMESTAMP" "")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "kelvra_add_image(${target}): unknown: ${arg_UNPARSED_ARGUMENTS}")
  elseif(arg_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR "kelvra_add_image(${target}): no value: ${arg_KEYWORDS_MISSING_VALUES}")
  elseif(NOT DEFINED arg_LID)
    message(FATAL_ERROR "kelvra_add_image(${target}): LID is missing")
  elseif(DEFINED arg_TIMESTAMP AND NOT arg_TIMESTAMP MATCHES "^-?[0-9]+$")
    message(FATAL_ERROR "kelvra_add_image(${target}): TIMESTAMP is not a number of seconds: ${arg_TIMESTAMP}")
  elseif(NOT DEFINED arg_SOURCE AND arg_LID MATCHES "^\\$<")
    message(FATAL_ERROR "kelvra_add_image(${target}): SOURCE is missing")
  endif()

  if(NOT DEFINED arg_SOURCE)
    cmake_path(REPLACE_EXTENSION arg_LID LAST_ONLY lidhdr OUTPUT_VARIABLE arg_SOURCE)
  endif()
  _kelvra_find_input(lid "${arg_LID}")
  _kelvra_find_input(source "${arg_SOURCE}")
  set(inputs "${lid}" "${source}")
  set(options --utc)
  if(DEFINED arg_VPDINFO)
    _kelvra_find_input(vpdinfo "${arg_VPDINFO}")
    list(APPEND inputs "${vpdinfo}")
    list(APPEND options --vpdinfo "${vpdinfo}")
  endif()
  if(DEFINED arg_TIMESTAMP)
    list(APPEND options --timestamp ${arg_TIMESTAMP})
  endif()
  if(arg_LINT)
    list(APPEND options --lint)
  endif()
  if(NOT DEFINED arg_OUTPUT)
    set(arg_OUTPUT "${target}.ruhx")
  endif()
  cmake_path(ABSOLUTE_PATH arg_OUTPUT BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE OUTPUT_VARIABLE image)

  # CMake's makefiles add an image's dependencies to those of its earlier builds. Without this file they are read anew.
  set(forget "")
  if(CMAKE_GENERATOR MATCHES "Makefiles")
    set(forget COMMAND "${CMAKE_COMMAND}" -E rm -f
      "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}.dir/compiler_depend.internal")
  endif()

  cmake_path(GET image PARENT_PATH folder)
  add_custom_command(
    OUTPUT "${image}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}"
    ${forget}
    COMMAND kelvra::kelvra-image build ${options} -l "${lid}" -r "${source}" -o "${image}" --depfile "${image}.d"
    DEPENDS ${inputs} "$<TARGET_FILE:kelvra::kelvra-image>"
    DEPFILE "${image}.d"
    COMMENT "Making ${arg_OUTPUT}"
    VERBATIM)
  add_custom_target(${target} ALL DEPENDS "${image}")
  set_target_properties(${target} PROPERTIES KELVRA_IMAGE "${image}" ADDITIONAL_CLEAN_FILES "${image}.d")
endfunction()
