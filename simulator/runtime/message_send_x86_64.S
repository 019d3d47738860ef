// objc_msgSend and its kin, over libobjc's lookup: every register that may carry an argument survives, and the method
// is jumped to, so that it finds the stack as the caller left it.
    .text

// The frame is the ordinary one, so that exceptions raised in a +initialize pass. rax holds the number of vector
// registers of a variadic call.
.macro SAVE_ARGUMENTS
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register rbp
    pushq %rax
    pushq %rdi
    pushq %rsi
    pushq %rdx
    pushq %rcx
    pushq %r8
    pushq %r9
    pushq %r10
    subq $128, %rsp
    movaps %xmm0, (%rsp)
    movaps %xmm1, 16(%rsp)
    movaps %xmm2, 32(%rsp)
    movaps %xmm3, 48(%rsp)
    movaps %xmm4, 64(%rsp)
    movaps %xmm5, 80(%rsp)
    movaps %xmm6, 96(%rsp)
    movaps %xmm7, 112(%rsp)
.endm

// Leaves what the lookup answered in r11, which carries no argument.
.macro RESTORE_ARGUMENTS
    movq %rax, %r11
    movaps (%rsp), %xmm0
    movaps 16(%rsp), %xmm1
    movaps 32(%rsp), %xmm2
    movaps 48(%rsp), %xmm3
    movaps 64(%rsp), %xmm4
    movaps 80(%rsp), %xmm5
    movaps 96(%rsp), %xmm6
    movaps 112(%rsp), %xmm7
    addq $128, %rsp
    popq %r10
    popq %r9
    popq %r8
    popq %rcx
    popq %rdx
    popq %rsi
    popq %rdi
    popq %rax
    popq %rbp
    .cfi_def_cfa rsp, 8
    .cfi_restore rbp
.endm

.macro FUNCTION name
    .globl \name
    .type \name, @function
    .p2align 4
\name:
    .cfi_startproc
.endm

.macro END_FUNCTION name
    .cfi_endproc
    .size \name, .-\name
.endm

// rdi = receiver, rsi = selector. nil answers zero, in whichever register the result is looked for.
FUNCTION objc_msgSend
    testq %rdi, %rdi
    jz 1f
    SAVE_ARGUMENTS
    call objc_msg_lookup@PLT
    RESTORE_ARGUMENTS
    jmp *%r11
1:  xorl %eax, %eax
    xorl %edx, %edx
    pxor %xmm0, %xmm0
    pxor %xmm1, %xmm1
    ret
END_FUNCTION objc_msgSend

// rdi = memory of the result, rsi = receiver, rdx = selector. For nil the memory stays as it is.
FUNCTION objc_msgSend_stret
    testq %rsi, %rsi
    jz 1f
    SAVE_ARGUMENTS
    movq %rsi, %rdi
    movq %rdx, %rsi
    call objc_msg_lookup@PLT
    RESTORE_ARGUMENTS
    jmp *%r11
1:  movq %rdi, %rax
    ret
END_FUNCTION objc_msgSend_stret

// rdi = objc_super, whose first word is the receiver, rsi = selector.
FUNCTION objc_msgSendSuper2
    SAVE_ARGUMENTS
    call sim_find_super_method
    RESTORE_ARGUMENTS
    movq (%rdi), %rdi
    jmp *%r11
END_FUNCTION objc_msgSendSuper2

// rdi = memory of the result, rsi = objc_super, rdx = selector.
FUNCTION objc_msgSendSuper2_stret
    SAVE_ARGUMENTS
    movq %rsi, %rdi
    movq %rdx, %rsi
    call sim_find_super_method
    RESTORE_ARGUMENTS
    movq (%rsi), %rsi
    jmp *%r11
END_FUNCTION objc_msgSendSuper2_stret

// The entries of trampolines.h, 16 bytes each: r11, which carries no argument, tells which.
    .globl sim_trampolines, sim_trampolines_end
    .hidden sim_trampolines, sim_trampolines_end
FUNCTION sim_trampolines
    .set number, 0
    .rept 1024
    .p2align 4
    movl $number, %r11d
    jmp sim_call_trampoline_target
    .set number, number + 1
    .endr
    .p2align 4
sim_trampolines_end:
END_FUNCTION sim_trampolines

FUNCTION sim_call_trampoline_target
    .hidden sim_call_trampoline_target
    SAVE_ARGUMENTS
    movl %r11d, %edi
    call sim_trampoline_target
    RESTORE_ARGUMENTS
    jmp *%r11
END_FUNCTION sim_call_trampoline_target

    .section .note.GNU-stack, "", @progbits
