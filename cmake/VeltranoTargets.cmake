# What every target of ours has in common. Nothing here is global: third-party code that is
# added to the build keeps its own flags.

# veltrano_target(<target>): language level, warnings as errors, sanitizers, coverage.
function(veltrano_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wshadow -Wconversion -Werror)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS)
    if(VELTRANO_ASSERTS)
        target_compile_options(${target} PRIVATE -UNDEBUG)
        target_compile_definitions(${target} PRIVATE QT_FORCE_ASSERTS)
    endif()
    if(VELTRANO_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${VELTRANO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PUBLIC -fsanitize=${VELTRANO_SANITIZE})
    endif()
    if(VELTRANO_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage)
        target_link_options(${target} PUBLIC --coverage)
    endif()
endfunction()

# veltrano_library(<target> HEADERS ... SOURCES ... LINK ...): one folder of the plug-in or of the
# host as a static library. Its own folder is its include directory; what it links is what it may
# include. Each header is compiled alone by the target all_verify_interface_header_sets.
function(veltrano_library target)
    cmake_parse_arguments(arg "" "" "HEADERS;SOURCES;LINK" ${ARGN})
    add_library(${target} STATIC ${arg_SOURCES})
    target_sources(${target} PUBLIC FILE_SET HEADERS
        BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES ${arg_HEADERS})
    target_link_libraries(${target} PUBLIC ${arg_LINK})
    set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    veltrano_target(${target})
endfunction()

# veltrano_test(<name> [LABELS ...] [LINK ...] SOURCES ...): one test executable under CTest.
# Tests run offscreen; those labelled "window" get a virtual X server of their own.
function(veltrano_test name)
    cmake_parse_arguments(arg "" "" "LABELS;LINK;SOURCES" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    # The plug-in's objects themselves: its folders use what stands beside the entry point, which an archive before them
    # would not hand out.
    target_link_libraries(${name} PRIVATE plugin_entry test_support ${arg_LINK})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
    veltrano_target(${name})
    if("window" IN_LIST arg_LABELS)
        add_test(NAME ${name} COMMAND "${CMAKE_SOURCE_DIR}/tools/with-display" $<TARGET_FILE:${name}>)
        set(platform "QT_QPA_PLATFORM=xcb")
    else()
        add_test(NAME ${name} COMMAND ${name})
        set(platform "QT_QPA_PLATFORM=offscreen")
    endif()
    set_tests_properties(${name} PROPERTIES
        LABELS "${arg_LABELS}"
        ENVIRONMENT "${platform};QT_LOGGING_RULES=qt.qpa.*=false;ASAN_OPTIONS=detect_leaks=0;UBSAN_OPTIONS=print_stacktrace=1;LC_ALL=C.UTF-8")
endfunction()

# veltrano_help(<target> SOURCE <folder> DESTINATION <folder> NAMESPACE <name> START <page>): the help pages of a folder
# as a help collection, whatever pages the folder holds at the time of the build.
function(veltrano_help target)
    cmake_parse_arguments(arg "" "SOURCE;DESTINATION;NAMESPACE;START" "" ${ARGN})
    # An earlier build linked the folder; through the link its own pages would be deleted.
    if(IS_SYMLINK "${arg_DESTINATION}")
        file(REMOVE "${arg_DESTINATION}")
    endif()
    file(GLOB pages CONFIGURE_DEPENDS "${arg_SOURCE}/*.htm")
    set(script "${CMAKE_SOURCE_DIR}/cmake/MakeHelpCollection.cmake")
    add_custom_command(OUTPUT "${arg_DESTINATION}/${arg_NAMESPACE}.qch"
        COMMAND "${CMAKE_COMMAND}" "-DSOURCE=${arg_SOURCE}" "-DDESTINATION=${arg_DESTINATION}"
            "-DNAMESPACE=${arg_NAMESPACE}" "-DSTART=${arg_START}" "-DGENERATOR=$<TARGET_FILE:Qt5::qhelpgenerator>"
            -P "${script}"
        DEPENDS ${pages} "${script}"
        COMMENT "Compiling the help pages of ${arg_SOURCE}"
        VERBATIM)
    add_custom_target(${target} ALL DEPENDS "${arg_DESTINATION}/${arg_NAMESPACE}.qch")
endfunction()
