" Settings for CASL2 source files.
if exists('b:did_ftplugin')
  finish
endif
let b:did_ftplugin = 1

setlocal comments=:; commentstring=;\ %s
setlocal formatoptions-=t formatoptions+=cql
setlocal autoindent
compiler zelvaro
let b:undo_ftplugin = 'setlocal comments< commentstring< formatoptions< autoindent< makeprg< errorformat<'
      \ . '| unlet! b:current_compiler'
