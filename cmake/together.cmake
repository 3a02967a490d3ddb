# The sources of the host and of the tests are compiled several at a time, as
# scripts/source_groups.py groups them each time that CMake looks at the tree: less than half
# the time of compiling them one by one. The library's are not, since boards build it without
# any of this, and the host's are not for the Debian packages.
option(ONU_ABILITY_TOGETHER "Compile several sources of the host and the tests at a time" ON)

# The sources of a target that have no definitions of their own.
function(sources_alike result target)
  get_target_property(sources ${target} SOURCES)
  get_target_property(folder ${target} SOURCE_DIR)
  set(alike "")
  foreach(source IN LISTS sources)
    if(source MATCHES "\\.cpp$")
      get_filename_component(path ${source} ABSOLUTE BASE_DIR ${folder})
      get_source_file_property(definitions ${path} TARGET_DIRECTORY ${target}
        COMPILE_DEFINITIONS)
      if(NOT definitions)
        list(APPEND alike ${path})
      endif()
    endif()
  endforeach()
  set(${result} ${alike} PARENT_SCOPE)
endfunction()

# The targets of a folder and of those below it that are compiled.
function(compiled_targets result folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  set(compiled "")
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type MATCHES "LIBRARY|EXECUTABLE")
      list(APPEND compiled ${target})
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(below IN LISTS folders)
    compiled_targets(more ${below})
    list(APPEND compiled ${more})
  endforeach()
  set(${result} ${compiled} PARENT_SCOPE)
endfunction()

function(compile_together folder)
  if(NOT ONU_ABILITY_TOGETHER)
    return()
  endif()
  set(pairs "")
  compiled_targets(targets ${folder})
  foreach(target IN LISTS targets)
    sources_alike(sources ${target})
    list(TRANSFORM sources PREPEND "${target}=")
    list(APPEND pairs ${sources})
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # What a source keeps to itself is in an included file then.
    target_compile_options(${target} PRIVATE
      $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-subobject-linkage>)
  endforeach()
  execute_process(COMMAND ${CMAKE_SOURCE_DIR}/scripts/source_groups.py ${pairs}
    OUTPUT_VARIABLE groups COMMAND_ERROR_IS_FATAL ANY)
  foreach(pair group IN ZIP_LISTS pairs groups)
    string(REGEX MATCH "^([^=]*)=(.*)" matched ${pair})
    set_source_files_properties(${CMAKE_MATCH_2} TARGET_DIRECTORY ${CMAKE_MATCH_1}
      PROPERTIES UNITY_GROUP ${group})
  endforeach()
endfunction()
