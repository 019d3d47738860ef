# read_once(<target> <header>): the target's files are compiled from a header that is read once. Without a time in it, ccache can
# compare what was read; and it goes by the headers alone, since one with another comment is another header to the compiler.
function(read_once target header)
    if(NOT HUECRAFT_PRECOMPILED_HEADERS)
        return()
    endif()
    target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    target_precompile_headers(${target} PRIVATE ${header})
    if(CMAKE_CXX_COMPILER_LAUNCHER)
        set_target_properties(${target} PROPERTIES
            CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND};-E;env;CCACHE_DEPEND=1;${CMAKE_CXX_COMPILER_LAUNCHER}")
    endif()
endfunction()

# read_together(<target>): in a cross build, the files of each folder are compiled as one, in a third of the time. Nobody waits there for
# one file that was changed; elsewhere each is compiled by itself.
function(read_together target)
    if(NOT CMAKE_CROSSCOMPILING)
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    get_target_property(folder ${target} SOURCE_DIR)
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder})
        cmake_path(GET source PARENT_PATH group)
        cmake_path(RELATIVE_PATH group BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
        string(MAKE_C_IDENTIFIER "${group}" group)
        set_source_files_properties(${source} TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${group})
    endforeach()
endfunction()
