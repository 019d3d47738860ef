; Functions that keep known values in the registers a call must preserve, and functions that overwrite them.
; Each is called with a callback in x0 and calls it.
    .text

.macro FUNCTION name
    .globl \name
    .p2align 2
\name:
    .cfi_startproc
.endm

; A frame record at the top and every pair of registers below it.
.macro SAVE_ALL
    sub sp, sp, #160
    stp d15, d14, [sp]
    stp d13, d12, [sp, #16]
    stp d11, d10, [sp, #32]
    stp d9, d8, [sp, #48]
    stp x28, x27, [sp, #64]
    stp x26, x25, [sp, #80]
    stp x24, x23, [sp, #96]
    stp x22, x21, [sp, #112]
    stp x20, x19, [sp, #128]
    stp x29, x30, [sp, #144]
    add x29, sp, #144
    .cfi_def_cfa w29, 16
    .cfi_offset w30, -8
    .cfi_offset w29, -16
    .cfi_offset w19, -24
    .cfi_offset w20, -32
    .cfi_offset w21, -40
    .cfi_offset w22, -48
    .cfi_offset w23, -56
    .cfi_offset w24, -64
    .cfi_offset w25, -72
    .cfi_offset w26, -80
    .cfi_offset w27, -88
    .cfi_offset w28, -96
    .cfi_offset b8, -104
    .cfi_offset b9, -112
    .cfi_offset b10, -120
    .cfi_offset b11, -128
    .cfi_offset b12, -136
    .cfi_offset b13, -144
    .cfi_offset b14, -152
    .cfi_offset b15, -160
.endm

.macro RESTORE_ALL
    ldp d15, d14, [sp]
    ldp d13, d12, [sp, #16]
    ldp d11, d10, [sp, #32]
    ldp d9, d8, [sp, #48]
    ldp x28, x27, [sp, #64]
    ldp x26, x25, [sp, #80]
    ldp x24, x23, [sp, #96]
    ldp x22, x21, [sp, #112]
    ldp x20, x19, [sp, #128]
    ldp x29, x30, [sp, #144]
    add sp, sp, #160
.endm

; _registers_holder(callback, function): calls function(callback) with x19 = 0x19 ... x28 = 0x28 and
; d8 = 8.0 ... d15 = 15.0.
FUNCTION _registers_holder
    SAVE_ALL
    mov x19, #0x19
    mov x20, #0x20
    mov x21, #0x21
    mov x22, #0x22
    mov x23, #0x23
    mov x24, #0x24
    mov x25, #0x25
    mov x26, #0x26
    mov x27, #0x27
    mov x28, #0x28
    fmov d8, #8.0
    fmov d9, #9.0
    fmov d10, #10.0
    fmov d11, #11.0
    fmov d12, #12.0
    fmov d13, #13.0
    fmov d14, #14.0
    fmov d15, #15.0
    blr x1
    RESTORE_ALL
    ret
    .cfi_endproc

FUNCTION _registers_framed
    SAVE_ALL
    mov x19, #0
    mov x20, #0
    mov x21, #0
    mov x22, #0
    mov x23, #0
    mov x24, #0
    mov x25, #0
    mov x26, #0
    mov x27, #0
    mov x28, #0
    fmov d8, #1.0
    fmov d9, #1.0
    fmov d10, #1.0
    fmov d11, #1.0
    fmov d12, #1.0
    fmov d13, #1.0
    fmov d14, #1.0
    fmov d15, #1.0
    blr x0
    RESTORE_ALL
    ret
    .cfi_endproc

; Saved where no encoding can say, so that only DWARF describes it.
FUNCTION _registers_dwarf
    sub sp, sp, #64
    .cfi_def_cfa_offset 64
    str x30, [sp]
    str x19, [sp, #16]
    str x21, [sp, #40]
    .cfi_offset w30, -64
    .cfi_offset w19, -48
    .cfi_offset w21, -24
    mov x19, #0
    mov x21, #0
    blr x0
    ldr x21, [sp, #40]
    ldr x19, [sp, #16]
    ldr x30, [sp]
    add sp, sp, #64
    ret
    .cfi_endproc

    .subsections_via_symbols
