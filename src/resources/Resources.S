// SPDX-License-Identifier: GPL-3.0-or-later
//
// The bytes of the files that are built into the library, each followed by a zero byte that its size
// does not count. The files are found through the include path.

#ifdef _WIN32
    .section .rdata, "dr"
#elif defined(__wasm__)
    .section .rodata.resources, "", @
    .hidden wybetaDictionaryText
    .hidden wybetaDictionaryTextSize
    .type wybetaDictionaryText, @object
    .type wybetaDictionaryTextSize, @object
#else
    .section .rodata, "a", @progbits
    .hidden wybetaDictionaryText
    .hidden wybetaDictionaryTextSize
#endif

    .globl wybetaDictionaryText
wybetaDictionaryText:
    .incbin "cmudict-0.7b-utf8-spll"
dictionaryTextEnd:
    .byte 0

    .globl wybetaDictionaryTextSize
    .balign 4
wybetaDictionaryTextSize:
    .long dictionaryTextEnd - wybetaDictionaryText

#ifdef __wasm__
    .size wybetaDictionaryText, dictionaryTextEnd - wybetaDictionaryText + 1
    .size dictionaryTextEnd, 1
    .size wybetaDictionaryTextSize, 4
#endif

#ifdef __ELF__
    .section .note.GNU-stack, "", @progbits
#endif
