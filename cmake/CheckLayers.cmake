# The layers of the source tree, lowest first. A file may include headers of its own layer and
# of the layers below it; Qt headers only in the renderer, the command-line program (which
# links QtGui, not QtWidgets) and the layers that show widgets.
#
#   base < numerics < data < chart < methods < plot < app < cli < widgets < screens < shell
#
# norvo_check_layers(ROOT) stops the configure step with every offending include listed.

set(NORVO_LAYER_ORDER base numerics data chart methods plot app cli widgets screens shell)


# The layer of a path relative to the source root ("growth/vbgf.h" -> methods).
function(norvo_layer_of relpath out)
  set(layer "")
  if(relpath MATCHES "^app/(screens|main)/")
    set(layer shell)
  elseif(relpath MATCHES "^[a-z]+/screens/")
    set(layer screens)
  elseif(relpath MATCHES "^(samples|growth|modal|mortality|selection|stock)/")
    set(layer methods)
  elseif(relpath MATCHES "^([a-z]+)/")
    set(layer ${CMAKE_MATCH_1})
  endif()
  list(FIND NORVO_LAYER_ORDER "${layer}" index)
  set(${out} ${index} PARENT_SCOPE)
endfunction()

function(norvo_check_layers root)
  file(GLOB_RECURSE files RELATIVE ${root} ${root}/*.h ${root}/*.cpp)
  set(errors "")
  foreach(f IN LISTS files)
    norvo_layer_of(${f} own)
    if(own EQUAL -1)
      string(APPEND errors "\n  ${f}: not in any layer")
      continue()
    endif()
    file(STRINGS ${root}/${f} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<]")
    foreach(line IN LISTS includes)
      if(line MATCHES "#[ \t]*include[ \t]*\"([^\"]+)\"")
        set(header ${CMAKE_MATCH_1})
        if(NOT header MATCHES "/")
          continue()  # a neighbour in the same folder
        endif()
        norvo_layer_of(${header} theirs)
        if(theirs EQUAL -1)
          string(APPEND errors "\n  ${f}: includes \"${header}\", which is in no layer")
        elseif(theirs GREATER own)
          list(GET NORVO_LAYER_ORDER ${own} ownName)
          list(GET NORVO_LAYER_ORDER ${theirs} theirName)
          string(APPEND errors
                 "\n  ${f} (${ownName}) includes \"${header}\" of the higher layer ${theirName}")
        endif()
      elseif(line MATCHES "#[ \t]*include[ \t]*<Q")
        # norvo-cli paints with the renderer (QtGui) but never links the widgets.
        if(NOT (f MATCHES "^plot/render/" OR f MATCHES "^widgets/" OR f MATCHES "/screens/"
                OR f MATCHES "^app/main/" OR f MATCHES "^cli/"))
          string(APPEND errors "\n  ${f}: includes a Qt header outside the Qt layers: ${line}")
        endif()
      endif()
    endforeach()
  endforeach()
  if(errors)
    message(FATAL_ERROR "Includes that break the layering:${errors}")
  endif()
endfunction()

# Script mode: cmake -DROOT=<dir> -P CheckLayers.cmake (used by the layering test).
if(CMAKE_SCRIPT_MODE_FILE AND ROOT)
  norvo_check_layers(${ROOT})
endif()
