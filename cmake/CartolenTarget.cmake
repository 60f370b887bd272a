if(CARTOLEN_FUZZ AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "The fuzzer comes with clang: configure with -DCMAKE_CXX_COMPILER=clang++-14")
endif()
set(cartolen_instruments)
if(CARTOLEN_SANITIZE OR CARTOLEN_FUZZ)
    list(APPEND cartolen_instruments -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
endif()
if(CARTOLEN_FUZZ)
    list(APPEND cartolen_instruments -fsanitize=fuzzer-no-link)
endif()
if(CARTOLEN_COVERAGE)
    list(APPEND cartolen_instruments --coverage)
endif()

# What every target of this project is built with: warnings, sanitizers and Qt's stricter switches.
add_library(cartolen_options INTERFACE)
target_compile_options(cartolen_options INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wconversion;-Wnon-virtual-dtor;-Woverloaded-virtual>
    $<$<BOOL:${CARTOLEN_WERROR}>:-Werror>
    ${cartolen_instruments})
target_link_options(cartolen_options INTERFACE ${cartolen_instruments})
target_compile_definitions(cartolen_options INTERFACE
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_CONTEXTLESS_CONNECT
    QT_NO_FOREACH
    QT_NO_KEYWORDS
    QT_STRICT_ITERATORS
    QT_USE_QSTRINGBUILDER)
target_include_directories(cartolen_options INTERFACE ${PROJECT_SOURCE_DIR})

# One library a folder, known to the others as Cartolen::<folder>.
function(cartolen_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    add_library(cartolen_${name} STATIC ${arg_SOURCES})
    add_library(Cartolen::${name} ALIAS cartolen_${name})
    target_link_libraries(cartolen_${name} PUBLIC ${arg_USES} PRIVATE cartolen_options)
    set_property(GLOBAL APPEND PROPERTY CARTOLEN_LIBRARIES cartolen_${name})
endfunction()

# Whether `library`, or one that it is linked to, is linked to Qt Widgets. All of them must be there already.
function(cartolen_has_widgets library result)
    set(has_widgets FALSE)
    get_target_property(linked ${library} LINK_LIBRARIES)
    foreach(one IN LISTS linked)
        if(one STREQUAL "Qt6::Widgets")
            set(has_widgets TRUE)
        elseif(one MATCHES "^Cartolen::")
            get_target_property(library_of_one ${one} ALIASED_TARGET)
            cartolen_has_widgets(${library_of_one} one_has_widgets)
            if(one_has_widgets)
                set(has_widgets TRUE)
            endif()
        endif()
    endforeach()
    set(${result} ${has_widgets} PARENT_SCOPE)
endfunction()

# Adds the target plain-libraries, all libraries without widgets, and writes down in the file of that name in the build
# folder where their objects are, a folder a line.
function(cartolen_plain_libraries)
    get_property(libraries GLOBAL PROPERTY CARTOLEN_LIBRARIES)
    add_custom_target(plain-libraries)
    set(folders "")
    foreach(library IN LISTS libraries)
        cartolen_has_widgets(${library} has_widgets)
        if(NOT has_widgets)
            add_dependencies(plain-libraries ${library})
            get_target_property(folder ${library} BINARY_DIR)
            string(APPEND folders "${folder}/CMakeFiles/${library}.dir\n")
        endif()
    endforeach()
    file(WRITE ${CMAKE_BINARY_DIR}/plain-libraries "${folders}")
endfunction()
