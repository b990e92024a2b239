# Warning and sanitizer settings, applied to our own targets through cxf_warnings.

add_library(cxf_warnings INTERFACE)
target_compile_options(cxf_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wswitch-enum
    $<$<BOOL:${CXF_WERROR}>:-Werror>)

if(CXF_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# Qt's strict settings, for every target that uses Qt.
add_library(cxf_qt_strict INTERFACE)
target_compile_definitions(cxf_qt_strict INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
    QT_USE_QSTRINGBUILDER QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)

# The fuzz build instruments everything for libFuzzer's coverage and the sanitizers; the fuzz
# targets add -fsanitize=fuzzer at link time (fuzz/CMakeLists.txt).
if(CXF_BUILD_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer
        -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=address,undefined)
endif()
