# Adds the resources of `qrc` to `target`, with every SVG picture in it drawn at build time and under its own name. An
# icon has each size that it takes on screens scaled from 100 to 300 per cent, so it is as sharp as the original.
set(icon_sizes 16 20 24 28 30 32 36 40 42 48 56 60 64 72 80 96)

function(cartolen_drawn_icons target qrc)
    get_filename_component(name ${qrc} NAME_WE)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/drawn-${name})
    get_filename_component(source_folder ${qrc} DIRECTORY BASE_DIR ${CMAKE_CURRENT_SOURCE_DIR})
    file(READ ${qrc} contents)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${qrc})

    string(REGEX MATCHALL "<file>[^<]+</file>" entries "${contents}")
    set(pictures)
    foreach(entry IN LISTS entries)
        string(REGEX REPLACE "</?file>" "" file ${entry})
        set(source ${source_folder}/${file})
        set(drawn ${file})
        if(file MATCHES "\\.svg$")
            file(STRINGS ${source} size REGEX "<svg ")
            if(size MATCHES "width=\"([0-9]+)\" height=\"([0-9]+)\"" AND CMAKE_MATCH_1 EQUAL CMAKE_MATCH_2)
                string(REPLACE ".svg" ".ico" drawn ${file})
                set(command ${PROJECT_SOURCE_DIR}/tools/draw-icon ${source} ${folder}/${drawn} ${icon_sizes})
            else()
                string(REPLACE ".svg" ".png" drawn ${file})
                set(command rsvg-convert --zoom 3 ${source} -o ${folder}/${drawn})
            endif()
        else()
            set(command ${CMAKE_COMMAND} -E copy ${source} ${folder}/${drawn})
        endif()
        string(REPLACE "${entry}" "<file alias=\"${file}\">${drawn}</file>" contents "${contents}")
        add_custom_command(OUTPUT ${folder}/${drawn} COMMAND ${command} DEPENDS ${source} VERBATIM)
        list(APPEND pictures ${folder}/${drawn})
    endforeach()
    file(CONFIGURE OUTPUT ${folder}/${name}.qrc CONTENT "${contents}" @ONLY)
    add_custom_command(
        OUTPUT ${folder}/qrc_${name}.cpp
        COMMAND Qt6::rcc --name ${name} --output ${folder}/qrc_${name}.cpp ${folder}/${name}.qrc
        DEPENDS ${pictures} ${folder}/${name}.qrc
        COMMENT "Drawing the icons"
        VERBATIM)
    target_sources(${target} PRIVATE ${folder}/qrc_${name}.cpp)
    set_source_files_properties(${folder}/qrc_${name}.cpp PROPERTIES SKIP_AUTOGEN ON)
endfunction()
