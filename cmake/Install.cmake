# Installation under CMAKE_INSTALL_PREFIX (`cmake --install build --prefix
# DIR`, or `make install PREFIX=DIR`):
#   bin/                          the programs
#   share/man/man1/               their man pages, from man/*.1 as they stand
#   share/epwingdict/             the reader's language files
#   share/epwingdict/epwing/      the demo books (plus, wadai) of the demo card
# epwingdict finds share/epwingdict from its own folder, so the tree may be
# moved as a whole. A program joins by its target name in `programs`; its
# man page is man/NAME.1.
set(programs tomeview mkbook epwingdict tenji)
foreach(program ${programs})
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION bin)
    install(FILES ${CMAKE_SOURCE_DIR}/man/${program}.1 DESTINATION share/man/man1)
  endif()
endforeach()
install(FILES ${CMAKE_SOURCE_DIR}/data/lang/EPWING_MENU.lng ${CMAKE_SOURCE_DIR}/data/lang/vekwrdJpn.lng
        DESTINATION share/epwingdict)
install(DIRECTORY ${CMAKE_BINARY_DIR}/card/epwing/plus ${CMAKE_BINARY_DIR}/card/epwing/wadai
        DESTINATION share/epwingdict/epwing)
