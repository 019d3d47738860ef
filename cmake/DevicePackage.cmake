# add_device_package(<target> CONTROL <template> FILES [<mode> <file> <folder on the device>]...)
# Makes package/<name>_<version>_iphoneos-arm.deb in the current binary directory, whose path is the target's PACKAGE_FILE. The
# name is that of the template's field Package.
set(DEVICE_PACKAGE_BUILDER ${CMAKE_CURRENT_LIST_DIR}/../device/package/build_package)

function(add_device_package target)
    cmake_parse_arguments(PARSE_ARGV 1 package "" CONTROL FILES)
    file(STRINGS ${package_CONTROL} name REGEX "^Package: ")
    string(REPLACE "Package: " "" name "${name}")
    set(name ${name}_${PROJECT_VERSION}_iphoneos-arm.deb)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/package)
    set(control ${folder}/control)
    configure_file(${package_CONTROL} ${control} @ONLY)
    file(CONFIGURE OUTPUT ${folder}/name CONTENT "${name}\n")
    set(contents "")
    list(LENGTH package_FILES count)
    math(EXPR last "${count} - 1")
    foreach(at RANGE 1 ${last} 3)
        list(GET package_FILES ${at} file)
        list(APPEND contents ${file})
    endforeach()
    add_custom_command(
        OUTPUT ${folder}/${name}
        COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${HUECRAFT_RELEASE_TIME}
            ${DEVICE_PACKAGE_BUILDER} ${control} ${folder}/${name} ${package_FILES}
        DEPENDS ${contents} ${control} ${DEVICE_PACKAGE_BUILDER}
        COMMENT "Packing ${name}"
        VERBATIM)
    add_custom_target(${target} ALL DEPENDS ${folder}/${name})
    set_target_properties(${target} PROPERTIES PACKAGE_FILE ${folder}/${name})
    install(FILES ${folder}/${name} DESTINATION . COMPONENT package)
endfunction()
