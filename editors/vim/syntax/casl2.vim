" CASL2 source files. A line is: label in column 1, blanks, opcode, blanks, operands, comment. Of two items that
" begin at the same place the one that is defined later is shown.
if exists('b:current_syntax')
  finish
endif
syntax case match

" Operands. What has none of the known forms is an error.
syntax match casl2OperandError "\<\w\+\>"
syntax match casl2OperandError "#\w*"
syntax match casl2OperandError "[^\x00-\x7f]\+"
syntax match casl2Name         "\<[A-Z][A-Z0-9]\{0,7}\>"
syntax match casl2Register     "\<GR[0-7]\>"
syntax match casl2Number       "[-+]\=\<\d\+\>"
syntax match casl2Number       "#[0-9A-F]\{4}\>"
syntax match casl2Literal      "="
syntax match casl2StringError  "'.*"
syntax match casl2StringError  "''"
syntax match casl2String       "'\%([^']\|''\)\+'"

" Opcodes, one line for each class of instructions. EXIT is an instruction in pipeline NH only.
syntax match casl2OpcodeError  contained "[^;[:blank:]]\S*"
syntax match casl2Directive    contained "\%(START\|END\|DC\|DS\)\%(\s\|$\)\@="
syntax match casl2Machine      contained "\%(LD\|LAD\|ST\|ADDA\|SUBA\|ADDL\|SUBL\|AND\|OR\|XOR\|CPA\|CPL\|SRA\|SRL\|SLA\|SLL\|JPL\|JMI\|JZE\|JNZ\|JOV\|JUMP\|CALL\|RET\|PUSH\|POP\|NOP\|SVC\)\%(\s\|$\)\@="
syntax match casl2Macro        contained "\%(IN\|OUT\|RPUSH\|RPOP\)\%(\s\|$\)\@="
syntax match casl2NhOnly       contained "\%(EXIT\)\%(\s\|$\)\@="
syntax cluster casl2Opcode     contains=casl2OpcodeError,casl2Directive,casl2Machine,casl2Macro,casl2NhOnly

" The beginning of a line. GR0 to GR7 are reserved.
syntax match casl2Indent       "^\s\+" nextgroup=@casl2Opcode
syntax match casl2LabelError   "^[^;[:blank:]]\S*" nextgroup=@casl2Opcode skipwhite
syntax match casl2Label        "^\%(GR[0-7]\%(\s\|$\)\)\@![A-Z][A-Z0-9]\{0,7}\%(\s\|$\)\@=" nextgroup=@casl2Opcode skipwhite
syntax match casl2Comment      ";.*" contains=@Spell

highlight default link casl2OperandError Error
highlight default link casl2StringError  Error
highlight default link casl2OpcodeError  Error
highlight default link casl2LabelError   Error
highlight default link casl2Name         Identifier
highlight default link casl2Register     Type
highlight default link casl2Number       Number
highlight default link casl2Literal      Operator
highlight default link casl2String       String
highlight default link casl2Directive    PreProc
highlight default link casl2Machine      Statement
highlight default link casl2Macro        Macro
highlight default link casl2NhOnly       Special
highlight default link casl2Label        Label
highlight default link casl2Comment      Comment

let b:current_syntax = 'casl2'
