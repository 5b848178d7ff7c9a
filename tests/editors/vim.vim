" Run by vim in a folder with "two words.casl" and empty.cas. Leaves what is wrong in the file faults.
filetype plugin on
syntax on

" The quickfix list after :make: line, type, file.
func s:Made(file)
  exe 'edit' fnameescape(a:file)
  silent make
  return map(filter(getqflist(), 'v:val.valid'), 'v:val.lnum .. " " .. v:val.type .. " " .. bufname(v:val.bufnr)')
endfunc
call assert_equal(['3 n two words.casl', '4 e two words.casl', '5 e two words.casl'], s:Made('two words.casl'))
call assert_equal(['0 e empty.cas'], s:Made('empty.cas'))

" The colours are those that grammar.casl wants of the other editor, by the names they have here.
let s:names = {'entity.name.function.label': 'Label', 'keyword.control.directive': 'Directive',
      \ 'keyword.other.mnemonic': 'Machine', 'support.function.macro': 'Macro', 'support.function.nh-only': 'NhOnly',
      \ 'variable.other.label': 'Name', 'variable.language.register': 'Register', 'comment.line.semicolon': 'Comment',
      \ 'constant.numeric.decimal': 'Number', 'constant.numeric.hex': 'Number', 'string.quoted.single': 'String',
      \ 'constant.character.escape': 'String', 'invalid.illegal.string.unclosed': 'StringError',
      \ 'invalid.illegal.string.empty': 'StringError', 'invalid.illegal.label': 'LabelError',
      \ 'invalid.illegal.opcode': 'OpcodeError', 'invalid.illegal.operand': 'OperandError'}
edit new.asl
for line in readfile(expand('<sfile>:h') .. '/grammar.casl')
  let [marks, from, to] = matchstrpos(line, '^;.*\zs\(\^\+\|<-\+\)')
  if empty(marks)
    call append('$', line)
  else
    let [from, to] = marks[0] == '<' ? [0, len(marks) - 1] : [match(line, '\^'), to]
    let wanted = 'casl2' .. s:names[matchstr(line, '[-^] \zs\S\+\ze\.casl2')]
    for column in range(from, to - 1)
      call assert_equal(wanted, synIDattr(synID(line('$'), byteidx(getline('$'), column) + 1, 1), 'name'), line)
    endfor
  endif
endfor
call writefile(v:errors, 'faults')
exe empty(v:errors) ? 'qall!' : 'cquit!'
