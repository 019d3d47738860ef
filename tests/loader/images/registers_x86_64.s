# Functions that keep known values in the registers a call must preserve, and functions that overwrite them in
# every kind of frame. Each is called with a callback in rdi and calls it.
    .text

.macro FUNCTION name
    .globl \name
    .p2align 4
\name:
    .cfi_startproc
.endm

.macro PUSH register, offset
    pushq %\register
    .cfi_def_cfa_offset \offset
.endm

.macro OVERWRITE
    xorl %ebx, %ebx
    xorl %r12d, %r12d
    xorl %r13d, %r13d
    xorl %r14d, %r14d
    xorl %r15d, %r15d
.endm

.macro RESTORE_ALL
    popq %r15
    popq %r14
    popq %r13
    popq %r12
    popq %rbx
.endm

# _registers_holder(callback, function): calls function(callback) with rbx = 0x1b, r12 = 0x12 ... r15 = 0x15.
FUNCTION _registers_holder
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    pushq %rbx
    pushq %r12
    pushq %r13
    pushq %r14
    pushq %r15
    pushq %rax
    .cfi_offset %rbx, -24
    .cfi_offset %r12, -32
    .cfi_offset %r13, -40
    .cfi_offset %r14, -48
    .cfi_offset %r15, -56
    movl $0x1b, %ebx
    movl $0x12, %r12d
    movl $0x13, %r13d
    movl $0x14, %r14d
    movl $0x15, %r15d
    callq *%rsi
    popq %rax
    RESTORE_ALL
    popq %rbp
    retq
    .cfi_endproc

# rbp is the frame pointer; all five others are saved below it.
FUNCTION _registers_framed
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    pushq %r15
    pushq %r14
    pushq %r13
    pushq %r12
    pushq %rbx
    pushq %rax
    .cfi_offset %rbx, -56
    .cfi_offset %r12, -48
    .cfi_offset %r13, -40
    .cfi_offset %r14, -32
    .cfi_offset %r15, -24
    OVERWRITE
    callq *%rdi
    popq %rax
    popq %rbx
    popq %r12
    popq %r13
    popq %r14
    popq %r15
    popq %rbp
    retq
    .cfi_endproc

# No frame pointer; all six pushed.
FUNCTION _registers_frameless_six
    PUSH rbp, 16
    PUSH r15, 24
    PUSH r14, 32
    PUSH r13, 40
    PUSH r12, 48
    PUSH rbx, 56
    PUSH rax, 64
    .cfi_offset %rbx, -56
    .cfi_offset %r12, -48
    .cfi_offset %r13, -40
    .cfi_offset %r14, -32
    .cfi_offset %r15, -24
    .cfi_offset %rbp, -16
    OVERWRITE
    xorl %ebp, %ebp
    callq *%rdi
    popq %rax
    popq %rbx
    popq %r12
    popq %r13
    popq %r14
    popq %r15
    popq %rbp
    retq
    .cfi_endproc

# Three of them in an odd order, and room for variables.
FUNCTION _registers_frameless_three
    PUSH r13, 16
    PUSH rbx, 24
    PUSH r15, 32
    subq $32, %rsp
    .cfi_def_cfa_offset 64
    .cfi_offset %r15, -32
    .cfi_offset %rbx, -24
    .cfi_offset %r13, -16
    xorl %ebx, %ebx
    xorl %r13d, %r13d
    xorl %r15d, %r15d
    callq *%rdi
    addq $32, %rsp
    popq %r15
    popq %rbx
    popq %r13
    retq
    .cfi_endproc

# More variables than the encoding can count.
FUNCTION _registers_frameless_large
    PUSH r14, 16
    PUSH rbx, 24
    subq $8008, %rsp
    .cfi_def_cfa_offset 8032
    .cfi_offset %rbx, -24
    .cfi_offset %r14, -16
    xorl %ebx, %ebx
    xorl %r14d, %r14d
    callq *%rdi
    addq $8008, %rsp
    popq %rbx
    popq %r14
    retq
    .cfi_endproc

# Described by a directive that has no encoding, so that only DWARF is left.
FUNCTION _registers_dwarf
    subq $56, %rsp
    .cfi_adjust_cfa_offset 56
    movq %rbx, 8(%rsp)
    movq %r12, 32(%rsp)
    .cfi_offset %rbx, -56
    .cfi_offset %r12, -32
    xorl %ebx, %ebx
    xorl %r12d, %r12d
    callq *%rdi
    movq 8(%rsp), %rbx
    movq 32(%rsp), %r12
    addq $56, %rsp
    retq
    .cfi_endproc

    .subsections_via_symbols
