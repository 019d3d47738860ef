# read_once(<target> <header>): the target's files are compiled from a header that is read once. Without a time in it, ccache
# can compare what was read.
function(read_once target header)
    if(HUECRAFT_PRECOMPILED_HEADERS)
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
        target_precompile_headers(${target} PRIVATE ${header})
    endif()
endfunction()
