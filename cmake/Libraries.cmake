# The libraries above the engine, in both builds (the main one and fuzz/),
# each after its own `bookengine`.
# mkbook's builder of books: the byte writers of catalogs, text files, index
# trees and font areas, and the source and EDICT readers over them.
subsystem_library(booktools FOLDERS tools DEPENDS bookengine platform)
# Test fixtures: the engine run with captured streams, scratch folders.
# and a presenter that records what the controls present.
subsystem_library(booktesting FOLDERS testing DEPENDS booktools bookengine controls terminal books platform)
subsystem_library(platform FOLDERS platform)
# What the application asks of books, below the store and the results.
subsystem_library(books FOLDERS books DEPENDS platform)
subsystem_library(store FOLDERS store DEPENDS books platform)
# The real books over the engine: the one way into it from the application.
subsystem_library(results FOLDERS results DEPENDS books platform bookengine)
subsystem_library(controls FOLDERS controls DEPENDS platform)
subsystem_library(app FOLDERS app DEPENDS controls results store platform)
# Japanese readings through MeCab, and kana Braille cells.
include(${CMAKE_CURRENT_LIST_DIR}/MeCab.cmake)
subsystem_library(reading FOLDERS reading DEPENDS platform MeCab::MeCab)
# The outside world at the edge: the terminal's lines, speech, and the
# stand-in for the device's task manager that starts the reader and hands it
# keys from a script or the keyboard.
subsystem_library(terminal FOLDERS terminal DEPENDS controls platform reading)
# Speech and Braille reach the user's own servers through their client
# libraries: speech-dispatcher's, the espeak-ng synthesizer's, BrlAPI.
find_package(PkgConfig REQUIRED)
pkg_check_modules(SPEECHD REQUIRED IMPORTED_TARGET speech-dispatcher)
pkg_check_modules(ESPEAK_NG REQUIRED IMPORTED_TARGET espeak-ng)
subsystem_library(speech FOLDERS speech DEPENDS controls platform reading PkgConfig::SPEECHD
                  PkgConfig::ESPEAK_NG)
find_library(BRLAPI_LIBRARY brlapi REQUIRED)
subsystem_library(braille FOLDERS braille DEPENDS controls platform reading ${BRLAPI_LIBRARY})
subsystem_library(taskman FOLDERS taskman DEPENDS app terminal braille)
