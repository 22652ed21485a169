# What every target of ours is compiled with. The warnings are a matter of our folders: programs that
# link the libraries have their own, and where these folders are a part of another project, no
# warning stops its build.
find_package(Threads REQUIRED)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion)
# Where vectors go when one compiler's program is called by another's is no matter here.
add_compile_options(-Wno-psabi)
if(PROJECT_IS_TOP_LEVEL)
  add_compile_options(-Werror)
endif()

# Debian's GoogleTest and Google Benchmark are built with the other standard library.
include(CheckCXXSymbolExists)
check_cxx_symbol_exists(_LIBCPP_VERSION version KORVANDI_LIBCXX)

include(GNUInstallDirs)
add_library(korvandi_options INTERFACE)
target_include_directories(korvandi_options INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/korvandi>)
target_compile_features(korvandi_options INTERFACE cxx_std_20)
target_link_libraries(korvandi_options INTERFACE Threads::Threads)
if(KORVANDI_LIBCXX AND CMAKE_SYSTEM_NAME STREQUAL Linux)
  # The C library ends a thread by libgcc's unwinder. Debian's libc++ brings another, which cannot
  # take over half way; where libgcc's comes first, both use that one.
  target_link_options(korvandi_options INTERFACE LINKER:--no-as-needed,-lgcc_s,--as-needed)
endif()
if(KORVANDI_SANITIZE)
  target_compile_options(korvandi_options INTERFACE
    -fsanitize=${KORVANDI_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g)
  target_link_options(korvandi_options INTERFACE -fsanitize=${KORVANDI_SANITIZE})
endif()

if(KORVANDI_COVERAGE)
  target_compile_options(korvandi_options INTERFACE --coverage -fprofile-update=atomic)
  target_compile_definitions(korvandi_options INTERFACE KORVANDI_COVERAGE)
  target_link_options(korvandi_options INTERFACE --coverage)
endif()
if(KORVANDI_FUZZ)
  # Edges alone: a look at every comparison makes a run several times slower than it finds more.
  target_compile_options(korvandi_options INTERFACE -fno-sanitize-coverage=trace-cmp)
endif()

# The resources stand beside the executables, under the name that the program looks for.
if(PROJECT_IS_TOP_LEVEL)
  file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/resources ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/resources
    SYMBOLIC)
endif()
