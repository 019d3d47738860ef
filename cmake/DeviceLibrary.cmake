# add_device_library(): cross-builds a dylib for iOS 12, with clang and lld alone. There is no vendor SDK: device/sdk holds
# the C headers, device/stubs what may be linked to.

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
# The system's exceptions still pass through, by the unwind tables. Paths in the output would tell builds apart.
set(DEVICE_COMPILE_OPTIONS
    -std=c++20 -Os ${HUECRAFT_WARNINGS} ${HUECRAFT_NIL_RECEIVERS}
    -fvisibility=hidden -fvisibility-inlines-hidden -fno-common
    -fno-exceptions -fno-rtti -funwind-tables -fno-stack-protector
    -ffile-prefix-map=${DEVICE_ROOT}/=
    -nostdlibinc -nostdinc++
    -isystem ${DEVICE_ROOT}/device/sdk/cxxsite
    -isystem ${DEVICE_LIBCXX}
    -isystem ${DEVICE_ROOT}/device/sdk/include
    -I ${DEVICE_ROOT}/src)

# iOS 12 knows neither chained fixups nor a constant data segment.
set(DEVICE_LINK_OPTIONS
    -no_fixup_chains -no_data_const -no_encryption -adhoc_codesign -dead_strip -x -S -demangle -fatal_warnings)

set(DEVICE_STUBS
    libSystem.tbd libobjc.tbd CoreFoundation.tbd Foundation.tbd CoreGraphics.tbd UIKit.tbd CydiaSubstrate.tbd)

# add_device_slice(<architecture> OUTPUT <name> INSTALL_NAME <path> EXPORTS <file> SOURCES <source>...)
# Builds <architecture>/<name> in the current binary directory. Sources are relative to the current source directory.
function(add_device_slice architecture)
    cmake_parse_arguments(PARSE_ARGV 1 slice "" "OUTPUT;INSTALL_NAME;EXPORTS" SOURCES)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${architecture})
    set(objects "")
    foreach(source IN LISTS slice_SOURCES)
        get_filename_component(source ${source} ABSOLUTE)
        file(RELATIVE_PATH name ${DEVICE_ROOT} ${source})
        string(REPLACE "../" "" name ${name})
        set(object ${folder}/objects/${name}.o)
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
        list(APPEND objects ${object})
    endforeach()

    list(TRANSFORM DEVICE_STUBS PREPEND ${DEVICE_ROOT}/device/stubs/ OUTPUT_VARIABLE stubs)
    get_filename_component(exports ${slice_EXPORTS} ABSOLUTE)
    set(output ${folder}/${slice_OUTPUT})
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${DEVICE_LINKER} -dylib -arch ${architecture}
            -platform_version ${DEVICE_PLATFORM_${architecture}} ${DEVICE_MINIMUM_VERSION} ${DEVICE_MINIMUM_VERSION}
            ${DEVICE_LINK_OPTIONS} -install_name ${slice_INSTALL_NAME} -exported_symbols_list ${exports}
            -o ${output} ${objects} ${stubs}
        DEPENDS ${objects} ${stubs} ${exports}
        COMMENT "Linking for ${architecture}: ${slice_OUTPUT}"
        VERBATIM)
endfunction()

# add_device_library(<target> OUTPUT <name> INSTALL_NAME <path> EXPORTS <file> SOURCES <source>...)
# Builds both slices, arm64/<name> and x86_64/<name>, and <name> that joins them; their paths are left in <target>_SLICES.
function(add_device_library target)
    cmake_parse_arguments(PARSE_ARGV 1 library "" OUTPUT "")
    set(slices "")
    foreach(architecture arm64 x86_64)
        add_device_slice(${architecture} ${ARGN})
        list(APPEND slices ${CMAKE_CURRENT_BINARY_DIR}/${architecture}/${library_OUTPUT})
    endforeach()
    set(joined ${CMAKE_CURRENT_BINARY_DIR}/${library_OUTPUT})
    add_custom_command(
        OUTPUT ${joined}
        COMMAND ${DEVICE_LIPO} -create ${slices} -output ${joined}
        DEPENDS ${slices}
        COMMENT "Joining ${library_OUTPUT}"
        VERBATIM)
    add_custom_target(${target} ALL DEPENDS ${joined})
    set(${target}_SLICES ${slices} PARENT_SCOPE)
endfunction()
