# tavix_generated_files(target program folder extension verb NAMES...): one file a name in a folder of the resources, made
# by the program, several at a time; `target` stands for all of them, and `verb` tells of the work while it is done.
function(tavix_generated_files target program folder extension verb)
    set(place ${TAVIX_BUILT_RESOURCES}/${folder})
    set(files)
    foreach(name IN LISTS ARGN)
        set(file ${place}/${name}.${extension})
        add_custom_command(
            OUTPUT ${file}
            COMMAND ${program} ${place} ${name}
            DEPENDS ${program}
            COMMENT "${verb} ${name}"
            VERBATIM)
        list(APPEND files ${file})
    endforeach()
    add_custom_target(${target} ALL DEPENDS ${files})
    install(FILES ${files} DESTINATION ${TAVIX_RESOURCE_DESTINATION}/${folder} COMPONENT engine)
endfunction()
