// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a compiler that knows __try and __except makes of them; MinGW's does not.
    .text
    .globl runStructured
    .globl handleStructured
    .seh_proc runStructured
runStructured:
    pushq %rbp
    .seh_pushreg %rbp
    movq %rsp, %rbp
    .seh_setframe %rbp, 0
    subq $48, %rsp
    .seh_stackalloc 48
    .seh_endprologue
    movq %r8, -8(%rbp)      // for the filter
.Ltry:
    movq %rcx, %rax
    movq %rdx, %rcx
    call *%rax
    nop
.Lend:
handleStructured:
    addq $48, %rsp
    popq %rbp
    ret
    .seh_handler __C_specific_handler, @except
    .seh_handlerdata
    .long 1
    .rva .Ltry, .Lend, filterStructured, handleStructured
    .text
    .seh_endproc
