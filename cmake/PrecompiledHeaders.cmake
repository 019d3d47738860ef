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
