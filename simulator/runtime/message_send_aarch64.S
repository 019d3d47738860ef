// objc_msgSend and objc_msgSendSuper2, over libobjc's lookup: every register that may carry an argument survives, and
// the method is jumped to, so that it finds the stack as the caller left it. Structure results need no entry of
// their own on this processor: their memory is in x8.
    .text

.macro SAVE_ARGUMENTS
    stp x29, x30, [sp, #-16]!
    .cfi_def_cfa_offset 16
    .cfi_offset x29, -16
    .cfi_offset x30, -8
    mov x29, sp
    .cfi_def_cfa_register x29
    sub sp, sp, #208
    stp x0, x1, [sp]
    stp x2, x3, [sp, #16]
    stp x4, x5, [sp, #32]
    stp x6, x7, [sp, #48]
    str x8, [sp, #64]
    stp q0, q1, [sp, #80]
    stp q2, q3, [sp, #112]
    stp q4, q5, [sp, #144]
    stp q6, q7, [sp, #176]
.endm

// Leaves what the lookup answered in x16, which carries no argument.
.macro RESTORE_ARGUMENTS
    mov x16, x0
    ldp x0, x1, [sp]
    ldp x2, x3, [sp, #16]
    ldp x4, x5, [sp, #32]
    ldp x6, x7, [sp, #48]
    ldr x8, [sp, #64]
    ldp q0, q1, [sp, #80]
    ldp q2, q3, [sp, #112]
    ldp q4, q5, [sp, #144]
    ldp q6, q7, [sp, #176]
    mov sp, x29
    ldp x29, x30, [sp], #16
    .cfi_def_cfa sp, 0
    .cfi_restore x29
    .cfi_restore x30
.endm

.macro FUNCTION name
    .globl \name
    .type \name, %function
    .p2align 4
\name:
    .cfi_startproc
.endm

.macro END_FUNCTION name
    .cfi_endproc
    .size \name, .-\name
.endm

// x0 = receiver, x1 = selector. nil answers zero, in whichever registers the result is looked for.
FUNCTION objc_msgSend
    cbz x0, 1f
    SAVE_ARGUMENTS
    bl objc_msg_lookup
    RESTORE_ARGUMENTS
    br x16
1:  mov x1, #0
    movi d0, #0
    movi d1, #0
    movi d2, #0
    movi d3, #0
    ret
END_FUNCTION objc_msgSend

// x0 = objc_super, whose first word is the receiver, x1 = selector.
FUNCTION objc_msgSendSuper2
    SAVE_ARGUMENTS
    bl sim_find_super_method
    RESTORE_ARGUMENTS
    ldr x0, [x0]
    br x16
END_FUNCTION objc_msgSendSuper2

// The entries of trampolines.h, 16 bytes each: x17, which carries no argument, tells which.
    .globl sim_trampolines, sim_trampolines_end
    .hidden sim_trampolines, sim_trampolines_end
FUNCTION sim_trampolines
    .set number, 0
    .rept 1024
    .p2align 4
    mov w17, #number
    b sim_call_trampoline_target
    .set number, number + 1
    .endr
    .p2align 4
sim_trampolines_end:
END_FUNCTION sim_trampolines

FUNCTION sim_call_trampoline_target
    .hidden sim_call_trampoline_target
    SAVE_ARGUMENTS
    mov w0, w17
    bl sim_trampoline_target
    RESTORE_ARGUMENTS
    br x16
END_FUNCTION sim_call_trampoline_target

    .section .note.GNU-stack, "", %progbits
