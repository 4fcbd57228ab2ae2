# One interface target carries every flag; nothing is set for a whole directory.
add_library(orvane_flags INTERFACE)
target_compile_options(orvane_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
    # GCC 12 takes the inactive members of a variant for reads of unset memory.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
target_compile_definitions(orvane_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(ORVANE_SANITIZE)
    target_compile_options(orvane_flags INTERFACE
        -fsanitize=${ORVANE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(orvane_flags INTERFACE -fsanitize=${ORVANE_SANITIZE})
endif()
