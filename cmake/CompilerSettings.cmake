# A target that every other target links: the language, the warnings, and the arithmetic that the results depend on.
# Warnings are errors only if a preset says so (CMAKE_COMPILE_WARNING_AS_ERROR), because later compilers add new ones.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CORVANE_CCACHE ccache)
if(CORVANE_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CORVANE_CCACHE}")
endif()

add_library(corvane_settings INTERFACE)
target_compile_options(corvane_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
    $<$<CXX_COMPILER_ID:GNU>:-Wmissing-declarations>
    # Collecting the garbage of several joined sources takes GCC a sixth of its time and saves 100 MB.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${CMAKE_UNITY_BUILD}>>:--param=ggc-min-heapsize=524288>
    # A fused a*b+c rounds once instead of twice: cut lists would differ between processors.
    -ffp-contract=off
    # Clang reports a deprecated function inside the library's stable_sort at every call of it.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)

if(CORVANE_SANITIZE)
    target_compile_options(corvane_settings INTERFACE
        -fsanitize=${CORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(corvane_settings INTERFACE -fsanitize=${CORVANE_SANITIZE})
endif()
if(CORVANE_FUZZERS)
    target_compile_options(corvane_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Headers that nearly every source includes, parsed once for all targets with the same compiler options. The preset
# "strict" builds without this, so that it cannot hide a missing include.
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/precompiled/empty.cpp" CONTENT "")
function(make_precompiled name)
    cmake_parse_arguments(PARSE_ARGV 1 made "" "" "HEADERS;OPTIONS;LIBRARIES")
    add_library(${name} OBJECT "${CMAKE_BINARY_DIR}/precompiled/empty.cpp")
    target_compile_options(${name} PRIVATE ${made_OPTIONS})
    target_link_libraries(${name} PRIVATE corvane_settings ${made_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${made_HEADERS})
endfunction()
set(common_headers
    <algorithm> <array> <cmath> <cstddef> <cstdint> <exception> <functional> <iterator> <limits> <map> <memory>
    <optional> <set> <span> <stdexcept> <string> <string_view> <utility> <variant> <vector>)
make_precompiled(corvane_precompiled HEADERS ${common_headers})

if(CORVANE_WINDOW)
    # The toolkit's headers take longer to parse than any source of ours. Those that many sources include; all of
    # <QtWidgets> would take twice as long to prepare and be slower to load.
    make_precompiled(corvane_precompiled_window
        HEADERS ${common_headers} <QAccessible> <QAction> <QApplication> <QComboBox> <QEvent> <QHBoxLayout>
            <QHeaderView> <QKeyEvent> <QLabel> <QLineEdit> <QMainWindow> <QMenu> <QPainter> <QPushButton> <QScrollArea>
            <QScrollBar> <QSplitter> <QString> <QStyledItemDelegate> <QTableView> <QVBoxLayout> <QWidget>
        OPTIONS ${CORVANE_TOOLKIT_OPTIONS}
        LIBRARIES Qt6::Widgets)
endif()
