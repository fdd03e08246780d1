# A few sources of a folder are compiled together, which takes about half of the time that they take
# one by one. So two sources of a folder do not give the same name to different things, not even in
# unnamed namespaces. Who edits one source again and again builds without it.
option(GATEWAY_UNITY_BUILD "Compile a few sources of a folder together" OFF)
set(GATEWAY_UNITY_SIZE 8)

# Applies to all sources of a target that have no options of their own.
function(compile_together target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  set(folders)
  foreach(source IN LISTS sources)
    get_filename_component(folder ${source} ABSOLUTE)
    get_filename_component(folder ${folder} DIRECTORY)
    file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR} ${folder})
    string(MAKE_C_IDENTIFIER "from_${folder}" folder)
    list(APPEND folders ${folder})
    list(APPEND ${folder} ${source})
  endforeach()
  list(REMOVE_DUPLICATES folders)
  foreach(folder IN LISTS folders)
    # As many to each as possible, and to all nearly as many.
    list(LENGTH ${folder} count)
    math(EXPR groups "(${count} + ${GATEWAY_UNITY_SIZE} - 1) / ${GATEWAY_UNITY_SIZE}")
    set(place 0)
    foreach(source IN LISTS ${folder})
      math(EXPR group "${place} % ${groups}")
      set_property(SOURCE ${source} PROPERTY UNITY_GROUP ${folder}_${group})
      math(EXPR place "${place} + 1")
    endforeach()
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${GATEWAY_UNITY_BUILD}
    UNITY_BUILD_MODE GROUP)
endfunction()
