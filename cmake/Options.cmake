# The compiler flags and Qt strictness of every target of the project, on one interface target.
add_library(talvora_options INTERFACE)
target_include_directories(talvora_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(talvora_options INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_KEYWORDS
    QT_STRICT_ITERATORS
    UNICODE)

if(MSVC)
    target_compile_options(talvora_options INTERFACE /W4 /WX /utf-8 /permissive-)
else()
    target_compile_options(talvora_options INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror)
endif()

if(TALVORA_SANITIZE)
    target_compile_options(talvora_options INTERFACE
        -fsanitize=${TALVORA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(talvora_options INTERFACE -fsanitize=${TALVORA_SANITIZE})
endif()
