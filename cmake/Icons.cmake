# Icons are drawn by Qt SVG when the program runs. For a Qt without it they are drawn when it is built: each keeps its name
# and has every size that it takes on screens scaled from 100 to 300 per cent, so it is as sharp.
set(icon_sizes 16 20 24 28 30 32 36 40 42 48 56 60 64 72 80 96)

# Adds the pictures of the resource collection `qrc` to `target`.
function(cartolen_icons target qrc)
    if(CARTOLEN_DRAWN_ICONS)
        cartolen_drawn_icons(${target} ${qrc})
    else()
        target_sources(${target} PRIVATE ${qrc})
        target_link_libraries(${target} PUBLIC Qt6::Svg)
    endif()
endfunction()

function(cartolen_drawn_icons target qrc)
    cmake_path(ABSOLUTE_PATH qrc)
    cmake_path(GET qrc STEM name)
    cmake_path(GET qrc PARENT_PATH source_folder)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/drawn-${name})
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
        COMMAND Qt6::rcc --name ${name} --compress-algo zlib --output ${folder}/qrc_${name}.cpp ${folder}/${name}.qrc
        DEPENDS ${pictures} ${folder}/${name}.qrc
        COMMENT "Drawing the icons"
        VERBATIM)
    target_sources(${target} PRIVATE ${folder}/qrc_${name}.cpp)
    set_source_files_properties(${folder}/qrc_${name}.cpp PROPERTIES SKIP_AUTOGEN ON)
endfunction()
