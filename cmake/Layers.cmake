# Layers with walls. A layer is a folder (or a few that need each other) compiled as one set of objects. Its headers are
# included by the folder's name ("db/Groups.h"), and it sees only its own folders and those of the layers it knows: each
# layer has an include root of its own in the build tree that holds nothing but links to its folders. An include that
# reaches over a wall does not compile.

# zol_layer(<target> FOLDERS <folder>... [KNOWS <layer>...] [LIBRARIES <library>...] [HIDDEN])
# Makes the objects <target> and <target>_headers, which stands for the layer's include root and what it knows. With
# HIDDEN, a library made of the layer shows only what is marked for export. A layer that has no source yet is headers only.
function(zol_layer target)
    cmake_parse_arguments(PARSE_ARGV 1 LAYER "HIDDEN" "" "FOLDERS;KNOWS;LIBRARIES")
    set(root ${CMAKE_BINARY_DIR}/walls/${target})
    set(sources)
    foreach(folder IN LISTS LAYER_FOLDERS)
        set(folder_path ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
        cmake_path(GET folder PARENT_PATH parent)
        file(MAKE_DIRECTORY ${root}/${parent})
        file(CREATE_LINK ${folder_path} ${root}/${folder} SYMBOLIC)
        file(GLOB_RECURSE folder_sources CONFIGURE_DEPENDS ${folder_path}/*.cpp)
        list(APPEND sources ${folder_sources})
    endforeach()

    add_library(${target}_headers INTERFACE)
    target_include_directories(${target}_headers INTERFACE ${root})
    target_link_libraries(${target}_headers INTERFACE ${LAYER_LIBRARIES})
    foreach(known IN LISTS LAYER_KNOWS)
        target_link_libraries(${target}_headers INTERFACE ${known}_headers)
    endforeach()

    if(sources)
        add_library(${target} OBJECT ${sources})
        target_link_libraries(${target} PUBLIC ${target}_headers)
        if(LAYER_HIDDEN)
            target_compile_options(${target} PRIVATE -fvisibility=hidden)
            target_precompile_headers(${target} REUSE_FROM precompiled_hidden)
        else()
            target_precompile_headers(${target} REUSE_FROM precompiled)
        endif()
    else()
        add_library(${target} INTERFACE)
        target_link_libraries(${target} INTERFACE ${target}_headers)
    endif()
endfunction()

# zol_objects(<variable> <layer>...): the objects of these layers, for the sources of a library or program.
function(zol_objects variable)
    set(objects)
    foreach(layer IN LISTS ARGN)
        get_target_property(type ${layer} TYPE)
        if(type STREQUAL "OBJECT_LIBRARY")
            list(APPEND objects $<TARGET_OBJECTS:${layer}>)
        endif()
    endforeach()
    set(${variable} ${objects} PARENT_SCOPE)
endfunction()
