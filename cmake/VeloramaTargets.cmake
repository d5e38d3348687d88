# What every target of the project shares, and the two functions that make a
# layer of the program and the test program of a layer.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
# A layer's moc step reads its own files only and need not wait for the layers below.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

option(VELORAMA_WERROR "Take the compiler's warnings as errors" ON)
option(VELORAMA_HARDENING "Build optimised code with the flags that Debian hardens its programs with" ON)
set(VELORAMA_SANITIZE "" CACHE STRING "Sanitizers to build with, as in -fsanitize=")

add_library(velorama_common INTERFACE)
target_compile_options(velorama_common INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wold-style-cast -Wcast-align -Wunused -Wformat=2
  $<$<BOOL:${VELORAMA_WERROR}>:-Werror>)
target_compile_definitions(velorama_common INTERFACE
  QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_NO_FOREACH QT_USE_QSTRINGBUILDER QT_STRICT_ITERATORS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# dpkg-buildflags with hardening=+all, in Debian 12. Its checks of copies need an optimising compiler,
# and the sanitizers bring checks of their own. Position-independent programs are the compiler's default.
if(VELORAMA_HARDENING AND NOT VELORAMA_SANITIZE)
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(velorama_common INTERFACE
    $<${optimised}:-fstack-protector-strong>
    "$<${optimised}:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>")
  target_link_options(velorama_common INTERFACE
    $<${optimised}:-Wl,-z,relro> $<${optimised}:-Wl,-z,now>)
endif()
if(VELORAMA_SANITIZE)
  target_compile_options(velorama_common INTERFACE
    -fsanitize=${VELORAMA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(velorama_common INTERFACE -fsanitize=${VELORAMA_SANITIZE})
endif()

# Headers of others that most sources include are read once, which makes a build from nothing twice as
# fast. A source names what it uses all the same: without the option everything builds too.
option(VELORAMA_PRECOMPILE "Precompile the headers that most sources include" ON)
if(CCACHE AND VELORAMA_PRECOMPILE)
  # ccache takes nothing that was compiled with such headers unless it is told that this is wanted.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()
set(VELORAMA_OFTEN <algorithm> <array> <cmath> <functional> <memory> <optional> <utility> <vector>
  <QByteArray> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QImage> <QList> <QObject> <QPainter>
  <QPointer> <QString> <QStringList> <QTimer>)
set(VELORAMA_OFTEN_WIDGETS ${VELORAMA_OFTEN} <QAction> <QApplication> <QKeyEvent> <QLabel> <QLineEdit>
  <QMouseEvent> <QPushButton> <QWidget>)
set(VELORAMA_OFTEN_TESTS ${VELORAMA_OFTEN_WIDGETS} <gtest/gtest.h> <QProcess> <QSet>
  <QTemporaryDir>)

# velorama_precompile(target headers...): these headers, or REUSE_FROM and a target that has them.
function(velorama_precompile target)
  if(VELORAMA_PRECOMPILE AND ARGV1 STREQUAL "REUSE_FROM")
    target_precompile_headers(${target} REUSE_FROM ${ARGV2})
  elseif(VELORAMA_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# velorama_layer(name LIBS ... [PRECOMPILE ...]): the folder's sources as a static library. A
# layer sees only what it names here, so a call to the left does not link.
function(velorama_layer name)
  cmake_parse_arguments(ARG "" "" "LIBS;PRECOMPILE" ${ARGN})
  if(NOT ARG_PRECOMPILE)
    set(ARG_PRECOMPILE REUSE_FROM velorama_controls)
  endif()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(velorama_${name} STATIC ${sources})
  target_include_directories(velorama_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(velorama_${name} PUBLIC velorama_common ${ARG_LIBS})
  velorama_precompile(velorama_${name} ${ARG_PRECOMPILE})
endfunction()

# velorama_add_test(name program words...): one of CTest's tests, with its report in a file of its own
# that a second try writes anew. The time limit is there for what hangs, on however busy a machine.
function(velorama_add_test name program)
  add_test(NAME ${name}
    COMMAND ${program} --gtest_output=xml:${CMAKE_BINARY_DIR}/reports/${name}.xml ${ARGN})
  set_tests_properties(${name} PROPERTIES TIMEOUT 1200)
endfunction()

# velorama_tests(name LIBS ...): the sources below tests/<name> as one program. It runs
# without a display, in a temporary home, and fails on any warning Qt prints.
function(velorama_tests name)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${name}/*.cpp ${PROJECT_SOURCE_DIR}/tests/${name}/*.h)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${name} ${sources})
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(test_${name} PRIVATE VELORAMA_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(test_${name} PRIVATE velorama_test_support ${ARG_LIBS})
  velorama_precompile(test_${name} REUSE_FROM velorama_test_support)
  velorama_add_test(${name} test_${name})
endfunction()
