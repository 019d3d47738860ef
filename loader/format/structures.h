// The structures of a Mach-O file and of its Objective-C metadata that the loader reads, by their standard
// names. Only their layout is used (Bytes::field): nothing in a file is trusted to be aligned, or whole.
#pragma once
#include <cstdint>

namespace macho {

struct fat_header {  // big-endian, as its list is
    uint32_t magic, nfat_arch;
};
struct fat_arch {
    uint32_t cputype, cpusubtype, offset, size, align;
};

struct mach_header_64 {
    uint32_t magic, cputype, cpusubtype, filetype, ncmds, sizeofcmds, flags, reserved;
};

struct load_command {
    uint32_t cmd, cmdsize;
};

struct segment_command_64 {  // its sections follow
    uint32_t cmd, cmdsize;
    char segname[16];
    uint64_t vmaddr, vmsize, fileoff, filesize;
    uint32_t maxprot, initprot, nsects, flags;
};
struct section_64 {
    char sectname[16], segname[16];
    uint64_t addr, size;
    uint32_t offset, align, reloff, nreloc;
    uint32_t flags;  // the type is in the lowest byte
    uint32_t reserved1, reserved2, reserved3;
};

struct dylib_command {
    uint32_t cmd, cmdsize;
    uint32_t name;  // where the text begins in the command
    uint32_t timestamp, current_version, compatibility_version;
};
struct dylinker_command {
    uint32_t cmd, cmdsize, name;
};
struct entry_point_command {
    uint32_t cmd, cmdsize;
    uint64_t entryoff, stacksize;
};
struct version_min_command {
    uint32_t cmd, cmdsize, version, sdk;
};
struct build_version_command {  // its tools follow
    uint32_t cmd, cmdsize, platform, minos, sdk, ntools;
};
struct uuid_command {
    uint32_t cmd, cmdsize;
    uint8_t uuid[16];
};
struct encryption_info_command_64 {
    uint32_t cmd, cmdsize, cryptoff, cryptsize, cryptid, pad;
};

struct linkedit_data_command {
    uint32_t cmd, cmdsize, dataoff, datasize;
};
struct dyld_info_command {
    uint32_t cmd, cmdsize, rebase_off, rebase_size, bind_off, bind_size, weak_bind_off, weak_bind_size,
        lazy_bind_off, lazy_bind_size, export_off, export_size;
};
struct symtab_command {
    uint32_t cmd, cmdsize, symoff, nsyms, stroff, strsize;
};
struct dysymtab_command {
    uint32_t cmd, cmdsize, ilocalsym, nlocalsym, iextdefsym, nextdefsym, iundefsym, nundefsym, tocoff, ntoc,
        modtaboff, nmodtab, extrefsymoff, nextrefsyms, indirectsymoff, nindirectsyms, extreloff, nextrel,
        locreloff, nlocrel;
};
struct nlist_64 {
    uint32_t n_strx;
    uint8_t n_type, n_sect;
    uint16_t n_desc;
    uint64_t n_value;
};

struct class_t {
    uint64_t isa, superclass, cache, vtable, data;
};
struct class_ro_t {
    uint32_t flags, instanceStart, instanceSize, reserved;
    uint64_t ivarLayout, name, baseMethods, baseProtocols, ivars, weakIvarLayout, baseProperties;
};
struct entsize_list_t {  // its rows follow
    uint32_t entsizeAndFlags, count;
};
struct method_t {
    uint64_t name, types, imp;
};
struct ivar_t {
    uint64_t offset, name, type;
    uint32_t alignment_raw, size;
};
struct property_t {
    uint64_t name, attributes;
};
struct protocol_t {
    uint64_t isa, mangledName, protocols, instanceMethods, classMethods, optionalInstanceMethods,
        optionalClassMethods, instanceProperties;
    uint32_t size, flags;  // what follows is there as far as the size says
    uint64_t extendedMethodTypes;
};
struct category_t {
    uint64_t name, cls, instanceMethods, classMethods, protocols, instanceProperties;
};

// A code signature, whose numbers are big-endian.
struct CS_BlobIndex {
    uint32_t type, offset;
};
struct CS_SuperBlob {  // its index follows
    uint32_t magic, length, count;
};
struct CS_GenericBlob {  // its data follow
    uint32_t magic, length;
};
struct CS_CodeDirectory {  // of the earliest version
    uint32_t magic, length, version, flags, hashOffset, identOffset, nSpecialSlots, nCodeSlots, codeLimit;
    uint8_t hashSize, hashType, platform, pageSize;
    uint32_t spare2;
};

struct unwind_info_section_header {
    uint32_t version, commonEncodingsArraySectionOffset, commonEncodingsArrayCount,
        personalityArraySectionOffset, personalityArrayCount, indexSectionOffset, indexCount;
};
struct unwind_info_section_header_index_entry {
    uint32_t functionOffset, secondLevelPagesSectionOffset, lsdaIndexArraySectionOffset;
};
struct unwind_info_section_header_lsda_index_entry {
    uint32_t functionOffset, lsdaOffset;
};
struct unwind_info_regular_second_level_page_header {
    uint32_t kind;
    uint16_t entryPageOffset, entryCount;
};
struct unwind_info_regular_second_level_entry {
    uint32_t functionOffset, encoding;
};
struct unwind_info_compressed_second_level_page_header {
    uint32_t kind;
    uint16_t entryPageOffset, entryCount, encodingsPageOffset, encodingsCount;
};

}  // namespace macho
