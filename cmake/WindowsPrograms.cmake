# What the two programs have on Windows only: the version resource and the manifest, compiled by windres, and a file
# that is the same whenever it is linked (strip would write the time into it).
enable_language(RC)

function(zelvaro_windows_program program english japanese)
  set(folder ${CMAKE_BINARY_DIR}/resources/${program})
  configure_file(packaging/windows/program.rc.in ${folder}/program.rc @ONLY)
  configure_file(packaging/windows/program.manifest.in ${folder}/program.manifest @ONLY)
  set_source_files_properties(${folder}/program.rc PROPERTIES OBJECT_DEPENDS ${folder}/program.manifest)
  target_sources(${program} PRIVATE ${folder}/program.rc)
  target_include_directories(${program} PRIVATE $<$<COMPILE_LANGUAGE:RC>:${folder}>)
  target_link_options(${program} PRIVATE -s -Wl,--no-insert-timestamp)
endfunction()

zelvaro_windows_program(zelvaro
  "Zelvaro: learn assembler programming with CASL2" "Zelvaro: CASL2 でアセンブラを学ぶ")
zelvaro_windows_program(zelvaro-check
  "Zelvaro: checks CASL2 programs without the menu" "Zelvaro: メニューを使わずに CASL2 を調べる")
