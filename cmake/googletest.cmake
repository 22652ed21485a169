# The targets GTest::gtest and GTest::gtest_main where GoogleTest is found: its library, or with
# libc++, which needs one of its own, its sources.
if(NOT KORVANDI_LIBCXX)
  find_package(GTest QUIET)
  return()
endif()
find_path(GOOGLETEST_SOURCES src/gtest-all.cc
  PATHS /usr/src/googletest/googletest NO_DEFAULT_PATH
  DOC "The sources of GoogleTest")
if(GOOGLETEST_SOURCES)
  add_library(korvandi_googletest STATIC EXCLUDE_FROM_ALL
    ${GOOGLETEST_SOURCES}/src/gtest-all.cc ${GOOGLETEST_SOURCES}/src/gtest_main.cc)
  target_include_directories(korvandi_googletest PRIVATE ${GOOGLETEST_SOURCES})
  target_include_directories(korvandi_googletest SYSTEM PUBLIC ${GOOGLETEST_SOURCES}/include)
  target_compile_options(korvandi_googletest PRIVATE -w)
  target_link_libraries(korvandi_googletest PUBLIC Threads::Threads)
  add_library(GTest::gtest_main ALIAS korvandi_googletest)
  add_library(GTest::gtest ALIAS korvandi_googletest)
endif()
