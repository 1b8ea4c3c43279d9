# What every target of this project is compiled with, in one place: link zentilconf_rules.

add_library(zentilconf_rules INTERFACE)
target_compile_features(zentilconf_rules INTERFACE cxx_std_20)
target_include_directories(zentilconf_rules INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(zentilconf_rules INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(MSVC)
    target_compile_options(zentilconf_rules INTERFACE /W4 /utf-8)
    if(ZENTILCONF_WERROR)
        target_compile_options(zentilconf_rules INTERFACE /WX)
    endif()
else()
    target_compile_options(zentilconf_rules INTERFACE
        -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Wold-style-cast)
    if(ZENTILCONF_WERROR)
        target_compile_options(zentilconf_rules INTERFACE -Werror)
    endif()
endif()

if(ZENTILCONF_SANITIZE)
    target_compile_options(zentilconf_rules INTERFACE
        -fsanitize=${ZENTILCONF_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(zentilconf_rules INTERFACE -fsanitize=${ZENTILCONF_SANITIZE})
endif()
