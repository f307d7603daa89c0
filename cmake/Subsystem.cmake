# The folders are found under SUBSYSTEM_ROOT, the project's top folder
# unless a project built from elsewhere (fuzz/) names it.
if(NOT SUBSYSTEM_ROOT)
  set(SUBSYSTEM_ROOT ${CMAKE_SOURCE_DIR})
endif()

# subsystem_library(NAME FOLDERS dir... [DEPENDS lib...])
# A static library of every *.cc in the folders that is not a *_test.cc.
# Folders with no sources yet give an interface library, so the layering
# can be declared before the code exists.
function(subsystem_library name)
  cmake_parse_arguments(SL "" "" "FOLDERS;DEPENDS" ${ARGN})
  set(sources)
  foreach(dir ${SL_FOLDERS})
    file(GLOB found CONFIGURE_DEPENDS ${SUBSYSTEM_ROOT}/${dir}/*.cc)
    list(FILTER found EXCLUDE REGEX "_test\\.cc$")
    list(APPEND sources ${found})
  endforeach()
  if(sources)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${SUBSYSTEM_ROOT})
    target_link_libraries(${name} PUBLIC ${SL_DEPENDS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${SUBSYSTEM_ROOT})
    target_link_libraries(${name} INTERFACE ${SL_DEPENDS})
  endif()
endfunction()

# subsystem_tests(NAME FOLDERS dir... DEPENDS lib... [OPTIONS flag...])
# One GoogleTest executable of every *_test.cc in the folders, registered
# with CTest case by case.
function(subsystem_tests name)
  cmake_parse_arguments(ST "" "" "FOLDERS;DEPENDS;OPTIONS" ${ARGN})
  set(sources)
  foreach(dir ${ST_FOLDERS})
    file(GLOB found CONFIGURE_DEPENDS ${SUBSYSTEM_ROOT}/${dir}/*_test.cc)
    list(APPEND sources ${found})
  endforeach()
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_compile_options(${name} PRIVATE ${ST_OPTIONS})
  target_link_libraries(${name} PRIVATE ${ST_DEPENDS} GTest::gtest GTest::gtest_main)
  gtest_discover_tests(${name} WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
                       PROPERTIES ENVIRONMENT "TOMEVIEW_BIN=${CMAKE_BINARY_DIR}/bin")
endfunction()
