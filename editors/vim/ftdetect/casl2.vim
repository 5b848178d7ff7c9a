" Vim knows some of these extensions as other languages, so this sets the type and does not only propose it.
autocmd BufNewFile,BufRead *.casl,*.cas,*.asl set filetype=casl2
