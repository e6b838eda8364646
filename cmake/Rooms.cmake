# A room is a folder of sources with a target. What it may include follows from the links of the target
# and is stated nowhere else.

# keep_in_room(TARGET [FOLDER]): declares FOLDER, by default that of the caller, to be the room of
# TARGET. Its sources and headers may include those of the rooms that TARGET links by name, and have to
# include something of each; otherwise the build fails. Call it when the links of TARGET are known.
# Rooms that it links come first, so that no links lead in a circle.
function(keep_in_room target)
    set(folder ${CMAKE_CURRENT_SOURCE_DIR})
    if(ARGC GREATER 1)
        set(folder ${CMAKE_CURRENT_SOURCE_DIR}/${ARGV1})
    endif()
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE room)
    set_target_properties(${target} PROPERTIES RTTI_ROOM ${room})
    if(NOT PROJECT_IS_TOP_LEVEL)
        return()
    endif()

    get_target_property(links ${target} LINK_LIBRARIES)
    list(FILTER links INCLUDE REGEX "^RTTI")
    set(visible)
    foreach(link IN LISTS links)
        room_of(${link} of_link)
        list(APPEND visible ${of_link})
    endforeach()
    list(JOIN visible "|" visible)
    file(GLOB files CONFIGURE_DEPENDS ${folder}/*.h ${folder}/*.cpp)
    set(check ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/CheckIncludes.cmake)
    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${target}.room)
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${CMAKE_COMMAND} -DROOM=${room} -DVISIBLE=${visible} -DSTAMP=${stamp} -P ${check}
        DEPENDS ${check} ${files}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
        COMMENT "Checking what ${room} includes"
        VERBATIM)
    add_custom_target(${target}_room ALL DEPENDS ${stamp})
    add_dependencies(${target} ${target}_room)
endfunction()

# room_of(LIBRARY OUTPUT): what the includes of a library begin with: its folder, or the name of a header
# if it has nothing but headers.
function(room_of library output)
    if(NOT TARGET ${library})
        message(FATAL_ERROR "${library} is linked before it is there: links between rooms go one way")
    endif()
    get_target_property(target ${library} ALIASED_TARGET)
    if(NOT target)
        set(target ${library})
    endif()
    get_target_property(type ${target} TYPE)
    get_target_property(room ${target} RTTI_ROOM)
    if(type STREQUAL INTERFACE_LIBRARY)
        get_target_property(paths ${target} HEADER_SET)
    elseif(room)
        set(paths ${room}/)
    else()
        get_target_property(folder ${target} SOURCE_DIR)
        set(paths ${folder}/)
    endif()
    list(TRANSFORM paths REPLACE "^${PROJECT_SOURCE_DIR}/" "")
    set(${output} ${paths} PARENT_SCOPE)
endfunction()
