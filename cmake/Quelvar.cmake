# What every target of the project shares: the language, the warnings, the cache of compilations,
# and one short function for each kind of target so that a folder's CMakeLists.txt is a list of files.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# Several work trees share one cache: paths are hashed relative to each tree, and its place is not hashed.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${CCACHE_PROGRAM}")
endif()

add_library(quelvar_options INTERFACE)
target_compile_options(quelvar_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wdouble-promotion -Wshadow -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wundef -Wunused -Wimplicit-fallthrough
  # A report is the same on every machine: no fused multiply-add, no reordering of sums.
  -ffp-contract=off -fno-fast-math)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(quelvar_options INTERFACE -Wduplicated-cond -Wduplicated-branches -Wlogical-op)
endif()
# Errors only with the compilers that CI has: what a newer one has learnt to warn of must not stop a user's build.
if(QUELVAR_WERROR AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # The ones left out come from the optimiser: they warn, but do not stop a build.
  target_compile_options(quelvar_options INTERFACE -Werror
    -Wno-error=maybe-uninitialized -Wno-error=array-bounds -Wno-error=stringop-overflow
    -Wno-error=stringop-overread -Wno-error=stringop-truncation -Wno-error=format-truncation
    -Wno-error=free-nonheap-object -Wno-error=nonnull -Wno-error=restrict)
endif()

# Below the forms: what computes and prints is optimised a little in every debug build, for its tests run over whole
# surveys; the sanitizers of undefined behaviour look there and not into what Qt generates.
add_library(quelvar_calcul INTERFACE)
target_compile_options(quelvar_calcul INTERFACE $<$<CONFIG:Debug>:-O1>)
if(QUELVAR_INDEFINIS)
  set(detecteurs -fsanitize=undefined,float-divide-by-zero,float-cast-overflow)
  target_compile_options(quelvar_calcul INTERFACE ${detecteurs} -fno-sanitize-recover=all)
  add_link_options(-fsanitize=undefined)
endif()

# quelvar_bibliotheque(core SOURCES texte.cpp ... [DEPEND other folders or targets])
# makes quelvar_core of the files of this folder; includes are written from src/ ("core/texte.h").
function(quelvar_bibliotheque nom)
  cmake_parse_arguments(A "" "" "SOURCES;DEPEND" ${ARGN})
  set(cible quelvar_${nom})
  if(A_SOURCES)
    add_library(${cible} STATIC ${A_SOURCES})
    set(portee PUBLIC)
    target_link_libraries(${cible} PRIVATE quelvar_options)
    if(NOT nom STREQUAL "forms")
      target_link_libraries(${cible} PRIVATE quelvar_calcul)
    endif()
  else()
    add_library(${cible} INTERFACE)
    set(portee INTERFACE)
  endif()
  target_include_directories(${cible} ${portee} "${PROJECT_SOURCE_DIR}/src")
  _quelvar_lier(${cible} ${portee} ${A_DEPEND})
endfunction()

# quelvar_programme(quelvar-batch SOURCES main.cpp ... [DEPEND ...]) makes an executable.
function(quelvar_programme nom)
  cmake_parse_arguments(A "" "" "SOURCES;DEPEND" ${ARGN})
  add_executable(${nom} ${A_SOURCES})
  target_include_directories(${nom} PRIVATE "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${nom} PRIVATE quelvar_options)
  _quelvar_lier(${nom} PRIVATE ${A_DEPEND})
endfunction()

# quelvar_test(core SOURCES texte_test.cpp ... [DEPEND ...] [SANS_MAIN])
# makes test_core of the files of this folder, linked with quelvar_core, and gives each test to ctest.
# SANS_MAIN: the sources bring their own main (the forms need an application object).
function(quelvar_test nom)
  cmake_parse_arguments(A "SANS_MAIN" "" "SOURCES;DEPEND" ${ARGN})
  if(NOT A_SOURCES)
    return()
  endif()
  set(cible test_${nom})
  add_executable(${cible} ${A_SOURCES})
  target_include_directories(${cible} PRIVATE "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${cible} PRIVATE quelvar_options quelvar_essai GTest::gtest)
  if(NOT A_SANS_MAIN)
    target_link_libraries(${cible} PRIVATE quelvar_essai_main)
  endif()
  if(TARGET quelvar_${nom})
    list(APPEND A_DEPEND ${nom})
  endif()
  _quelvar_lier(${cible} PRIVATE ${A_DEPEND})
  gtest_discover_tests(${cible} TEST_PREFIX "${nom}: " NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120 LABELS ${nom})
endfunction()

function(_quelvar_lier cible portee)
  foreach(d ${ARGN})
    if(TARGET quelvar_${d} OR EXISTS "${PROJECT_SOURCE_DIR}/src/${d}/CMakeLists.txt")
      target_link_libraries(${cible} ${portee} quelvar_${d})
    else()
      target_link_libraries(${cible} ${portee} ${d})
    endif()
  endforeach()
endfunction()
