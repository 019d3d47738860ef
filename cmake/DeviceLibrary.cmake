# add_device_library() and add_device_executable(): cross-build for iOS 12, with clang and lld alone. There is no vendor SDK:
# device/sdk holds the C headers, stubs say what may be linked to.

find_program(DEVICE_LINKER ld64.lld-${HUECRAFT_LLVM} REQUIRED)
find_program(DEVICE_LIPO llvm-lipo-${HUECRAFT_LLVM} REQUIRED)
find_path(DEVICE_LIBCXX version PATHS /usr/lib/llvm-${HUECRAFT_LLVM}/include/c++/v1 NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
get_filename_component(DEVICE_ROOT ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)

set(DEVICE_MINIMUM_VERSION 12.0)
set(DEVICE_PLATFORM_arm64 ios)
set(DEVICE_PLATFORM_x86_64 ios-simulator)
set(DEVICE_TRIPLE_arm64 arm64-apple-ios${DEVICE_MINIMUM_VERSION})
set(DEVICE_TRIPLE_x86_64 x86_64-apple-ios${DEVICE_MINIMUM_VERSION}-simulator)

# C++20 without exceptions and run-time type information, and of the standard library what its headers alone provide.
# The system's exceptions still pass through, by the unwind tables. Paths in the output would make two builds differ.
set(DEVICE_COMPILE_OPTIONS
    -std=c++20 -Os ${HUECRAFT_WARNINGS} ${HUECRAFT_NIL_RECEIVERS}
    -fvisibility=hidden -fvisibility-inlines-hidden -fno-common
    -fno-exceptions -fno-rtti -funwind-tables -fno-stack-protector
    -ffile-prefix-map=${DEVICE_ROOT}/=
    -nostdlibinc -nostdinc++
    -isystem ${DEVICE_ROOT}/device/sdk/cxxsite
    -isystem ${DEVICE_LIBCXX}
    -isystem ${DEVICE_ROOT}/device/sdk/include
    -I ${DEVICE_ROOT} -I ${DEVICE_ROOT}/library)

# iOS 12 knows neither chained fixups nor a constant data segment. The linker's signature makes room for ours.
set(DEVICE_LINK_OPTIONS
    -no_fixup_chains -no_data_const -no_encryption -adhoc_codesign -dead_strip -x -S -demangle -fatal_warnings)

set(DEVICE_STUBS
    libSystem.tbd libobjc.tbd CoreFoundation.tbd Foundation.tbd CoreGraphics.tbd UIKit.tbd CydiaSubstrate.tbd)

# Compiles the sources for the architecture; the objects' paths are left in <objects>.
function(add_device_objects architecture objects)
    set(found "")
    foreach(source IN LISTS ARGN)
        get_filename_component(source ${source} ABSOLUTE)
        file(RELATIVE_PATH name ${DEVICE_ROOT} ${source})
        string(REPLACE "../" "" name ${name})
        set(object ${CMAKE_CURRENT_BINARY_DIR}/${architecture}/objects/${name}.o)
        get_filename_component(object_folder ${object} DIRECTORY)
        file(MAKE_DIRECTORY ${object_folder})
        add_custom_command(
            OUTPUT ${object}
            COMMAND ${CMAKE_CXX_COMPILER_LAUNCHER} ${CMAKE_CXX_COMPILER} -target ${DEVICE_TRIPLE_${architecture}}
                ${DEVICE_COMPILE_OPTIONS} -MD -MF ${object}.d -MT ${object} -c ${source} -o ${object}
            DEPENDS ${source}
            DEPFILE ${object}.d
            COMMENT "Building for ${architecture}: ${name}"
            VERBATIM)
        list(APPEND found ${object})
    endforeach()
    set(${objects} ${found} PARENT_SCOPE)
endfunction()

# Links and signs <architecture>/<name> in the current binary directory, of objects and stubs, the INPUTS.
function(link_device_slice architecture name)
    cmake_parse_arguments(PARSE_ARGV 2 slice "" "" "OPTIONS;INPUTS;DEPENDS")
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${architecture})
    set(output ${folder}/${name})
    set(unsigned ${folder}/unsigned/${name})  # the linker makes the name a part of LC_UUID
    file(MAKE_DIRECTORY ${folder}/unsigned)
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${DEVICE_LINKER} ${slice_OPTIONS} -arch ${architecture}
            -platform_version ${DEVICE_PLATFORM_${architecture}} ${DEVICE_MINIMUM_VERSION} ${DEVICE_MINIMUM_VERSION}
            ${DEVICE_LINK_OPTIONS} -o ${unsigned} ${slice_INPUTS}
        COMMAND sign_slice ${unsigned} ${name} ${output}
        DEPENDS ${slice_INPUTS} ${slice_DEPENDS} sign_slice
        BYPRODUCTS ${unsigned}
        COMMENT "Linking and signing for ${architecture}: ${name}"
        VERBATIM)
endfunction()

# add_arm64e_slice(<target> <name>): arm64e/<name> in the current binary directory, out of what was linked as arm64/<name>.
function(add_arm64e_slice target name)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/arm64e)
    set(output ${folder}/${name})
    set(unsigned ${folder}/unsigned/${name})
    file(MAKE_DIRECTORY ${folder}/unsigned)
    add_custom_command(
        OUTPUT ${output}
        COMMAND arm64e_slice ${CMAKE_CURRENT_BINARY_DIR}/arm64/unsigned/${name} ${unsigned}
        COMMAND sign_slice ${unsigned} ${name} ${output}
        DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/arm64/${name} arm64e_slice sign_slice
        BYPRODUCTS ${unsigned}
        COMMENT "Converting and signing for arm64e: ${name}"
        VERBATIM)
    add_custom_target(${target} DEPENDS ${output})
endfunction()

# join_device_slices(<target> <name> <slice>...): one file of several slices, <name> in the current binary directory.
function(join_device_slices target name)
    set(joined ${CMAKE_CURRENT_BINARY_DIR}/${name})
    add_custom_command(
        OUTPUT ${joined}
        COMMAND ${DEVICE_LIPO} -create ${ARGN} -output ${joined}
        DEPENDS ${ARGN}
        COMMENT "Joining slices: ${name}"
        VERBATIM)
    add_custom_target(${target} ALL DEPENDS ${joined})
endfunction()

# add_device_slice(<architecture> OUTPUT <name> INSTALL_NAME <path> EXPORTS <file> [STUBS <file>...] [OWN_STUBS <file>...]
#     SOURCES <source>...)
# Builds <architecture>/<name> in the current binary directory. Sources are relative to the current source directory. It is
# linked with the library's stubs and those that are added, or with stubs of its own in their place.
function(add_device_slice architecture)
    cmake_parse_arguments(PARSE_ARGV 1 slice "" "OUTPUT;INSTALL_NAME;EXPORTS" "STUBS;OWN_STUBS;SOURCES")
    add_device_objects(${architecture} objects ${slice_SOURCES})
    list(TRANSFORM DEVICE_STUBS PREPEND ${DEVICE_ROOT}/device/stubs/ OUTPUT_VARIABLE stubs)
    if(slice_OWN_STUBS)
        set(stubs ${slice_OWN_STUBS})
    endif()
    list(APPEND stubs ${slice_STUBS})
    get_filename_component(exports ${slice_EXPORTS} ABSOLUTE)
    link_device_slice(${architecture} ${slice_OUTPUT}
        OPTIONS -dylib -install_name ${slice_INSTALL_NAME} -exported_symbols_list ${exports}
        INPUTS ${objects} ${stubs}
        DEPENDS ${exports})
endfunction()

# add_device_library(<target> OUTPUT <name> INSTALL_NAME <path> EXPORTS <file> [STUBS <file>...] [OWN_STUBS <file>...]
#     SOURCES <source>...)
# Builds both slices, arm64/<name> and x86_64/<name>, and <name> that joins them; their paths are left in <target>_SLICES.
function(add_device_library target)
    cmake_parse_arguments(PARSE_ARGV 1 library "" OUTPUT "")
    set(slices "")
    foreach(architecture arm64 x86_64)
        add_device_slice(${architecture} ${ARGN})
        list(APPEND slices ${CMAKE_CURRENT_BINARY_DIR}/${architecture}/${library_OUTPUT})
    endforeach()
    join_device_slices(${target} ${library_OUTPUT} ${slices})
    set(${target}_SLICES ${slices} PARENT_SCOPE)
endfunction()

# add_device_executable(<target> OUTPUT <name> STUBS <file>... SOURCES <source>...)
# Builds arm64/<name> and x86_64/<name>, main executables; their paths are left in <target>_SLICES.
function(add_device_executable target)
    cmake_parse_arguments(PARSE_ARGV 1 executable "" OUTPUT "STUBS;SOURCES")
    set(slices "")
    foreach(architecture arm64 x86_64)
        add_device_objects(${architecture} objects ${executable_SOURCES})
        link_device_slice(${architecture} ${executable_OUTPUT}
            OPTIONS -execute -pie -e _main
            INPUTS ${objects} ${executable_STUBS})
        list(APPEND slices ${CMAKE_CURRENT_BINARY_DIR}/${architecture}/${executable_OUTPUT})
    endforeach()
    add_custom_target(${target} ALL DEPENDS ${slices})
    set(${target}_SLICES ${slices} PARENT_SCOPE)
endfunction()
