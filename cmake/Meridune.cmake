# Compiler settings and the three helpers that every folder's CMakeLists.txt uses.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1")
if(MERIDUNE_SANITIZE OR MERIDUNE_TSAN)
    set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1")  # half the time to compile, and the same finds
endif()

# Contraction would give the two processor variants of a kernel different bits.
add_compile_options(-Wall -Wextra -Wno-psabi -ffp-contract=off)
if(MERIDUNE_WERROR)
    add_compile_options(-Werror)
endif()
if(MERIDUNE_TSAN)
    add_compile_options(-fsanitize=thread)
    add_link_options(-fsanitize=thread)
endif()
if(MERIDUNE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
include_directories(${CMAKE_SOURCE_DIR})

# The precompiled Qt headers change only with the packages; without these the cache never hits.
# Paths are made relative, so that a second checkout finds what the first has built.
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
    add_compile_options($<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fpch-preprocess>)
endif()

find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets PrintSupport Svg X11Extras Test)
find_package(Threads REQUIRED)
find_package(OpenMP REQUIRED COMPONENTS CXX)
find_path(QWT_INCLUDE_DIR qwt_plot.h PATH_SUFFIXES qwt REQUIRED)
find_library(QWT_LIBRARY NAMES qwt-qt5 REQUIRED)
# Qwt 6.1 names a template's destructor in a way that C++20 has dropped: whoever includes the curve gets that one
# header corrected first, and Qwt's own copy then stands behind its guard.
file(READ ${QWT_INCLUDE_DIR}/qwt_series_store.h seriesStore)
string(REPLACE "~QwtSeriesStore<T>()" "~QwtSeriesStore()" seriesStore "${seriesStore}")
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/qwt/qwt_series_store.h CONTENT "${seriesStore}" @ONLY)
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/qwt/qwt_plot_curve.h
    CONTENT "#include \"qwt_series_store.h\"\n#include_next <qwt_plot_curve.h>\n" @ONLY)
add_library(Qwt::Qwt INTERFACE IMPORTED)
target_include_directories(Qwt::Qwt SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/qwt ${QWT_INCLUDE_DIR})
target_link_libraries(Qwt::Qwt INTERFACE ${QWT_LIBRARY} Qt5::Widgets Qt5::PrintSupport Qt5::Svg)

# meridune_library(NAME DEPENDS...): the library of this folder, from all its sources.
function(meridune_library name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    # A folder inside with a CMakeLists.txt is a library of its own.
    file(GLOB_RECURSE inner CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*/CMakeLists.txt)
    foreach(list ${inner})
        cmake_path(GET list PARENT_PATH folder)
        list(FILTER sources EXCLUDE REGEX "^${folder}/")
    endforeach()
    if(NOT sources MATCHES "\\.cpp")
        file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp "")
        list(APPEND sources ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
    endif()
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC ${ARGN} OpenMP::OpenMP_CXX)
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    # moc isn't asked again for sources that a later configure has found.
    file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp)
endfunction()

# meridune_precompiled(NAME HEADER DEPENDS...): a header compiled once, for all that name it by REUSE_FROM.
function(meridune_precompiled name header)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE ${ARGN} OpenMP::OpenMP_CXX)
    target_precompile_headers(${name} PRIVATE ${header})
endfunction()

meridune_precompiled(qtprecompiled ${CMAKE_SOURCE_DIR}/cmake/qtprecompiled.h Qwt::Qwt)

# meridune_widget_library(NAME DEPENDS...): the same with Qt's widgets, moc and the precompiled headers.
function(meridune_widget_library name)
    meridune_library(${name} ${ARGN} Qwt::Qwt)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_precompile_headers(${name} REUSE_FROM qtprecompiled)
endfunction()
