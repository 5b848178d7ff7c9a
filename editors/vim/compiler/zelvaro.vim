" :make checks the file of the current buffer. :cn and :cp go to the next and the previous message.
if exists('current_compiler')
  finish
endif
let current_compiler = 'zelvaro'

CompilerSet makeprg=zelvaro-check\ --format\ gnu\ %:S
" The line and the column are left out where a message has none. The last letter of a format decides what kind of
" message it is, so each of the three words has its own.
CompilerSet errorformat=
      \%f:%l:%c:\ %trror:\ %m,%f:%l:%c:\ %tarning:\ %m,%f:%l:%c:\ %tote:\ %m,
      \%f:%l:\ %trror:\ %m,%f:%l:\ %tarning:\ %m,%f:%l:\ %tote:\ %m,
      \%f:\ %trror:\ %m,%f:\ %tarning:\ %m,%f:\ %tote:\ %m
