# MeCab, the library that gives Japanese texts their readings: found through
# pkg-config when the system ships a mecab.pc, else through mecab-config
# (Debian's libmecab-dev). Defines the target MeCab::MeCab.
if(TARGET MeCab::MeCab)
  return()
endif()
find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
  pkg_check_modules(MECAB QUIET IMPORTED_TARGET mecab)
endif()
if(MECAB_FOUND)
  add_library(MeCab::MeCab ALIAS PkgConfig::MECAB)
  return()
endif()
find_program(MECAB_CONFIG mecab-config)
if(NOT MECAB_CONFIG)
  message(FATAL_ERROR "MeCab not found: install libmecab-dev (sh scripts/install-deps.sh)")
endif()
execute_process(COMMAND ${MECAB_CONFIG} --inc-dir OUTPUT_VARIABLE mecab_include
                OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND ${MECAB_CONFIG} --libs-only-L OUTPUT_VARIABLE mecab_libdir
                OUTPUT_STRIP_TRAILING_WHITESPACE)
find_library(MECAB_LIBRARY mecab HINTS ${mecab_libdir} REQUIRED)
add_library(MeCab::MeCab UNKNOWN IMPORTED)
set_target_properties(MeCab::MeCab PROPERTIES IMPORTED_LOCATION ${MECAB_LIBRARY}
                      INTERFACE_INCLUDE_DIRECTORIES ${mecab_include})
