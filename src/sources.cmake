# The library's translation units: the one list that the ELF library and both slices of the dylib are built from.
set(HUECRAFT_SOURCES
    hooks/background.cpp
    hooks/hook_table.cpp
    hooks/key_colours.cpp
    hooks/keyboard_cache.cpp
    hooks/monochrome_filter.cpp
    hooks/setup.cpp
    image.cpp
    model/HCCITool.cpp
    model/HCPreferences.cpp
    model/HuecraftConfig.cpp
    model/config_error.cpp
    model/keyboard_size.cpp)
