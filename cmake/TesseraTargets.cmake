# What every target of this project is built with.

# Own code is compiled as C++17, with hidden symbols, our warnings and the chosen sanitizers.
function(tessera_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    if(TESSERA_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(TESSERA_SANITIZERS)
        target_compile_options(${target} PRIVATE
            -fsanitize=${TESSERA_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${TESSERA_SANITIZERS})
    endif()
endfunction()

# What makes a fault harder to exploit. An optimised build also has the C library check the bounds
# that the compiler knows, which a sanitizer does by itself; a debug build those of the containers.
function(tessera_harden target)
    target_compile_options(${target} PRIVATE -fstack-protector-strong)
    target_compile_definitions(${target} PRIVATE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
    if(NOT TESSERA_SANITIZERS)
        set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
        target_compile_options(${target} PRIVATE
            $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=3>)
        target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now,-z,noexecstack)
    endif()
endfunction()

include(CheckLinkerFlag)
set(TESSERA_EXPORTS ${CMAKE_CURRENT_LIST_DIR}/exports.map)
check_linker_flag(CXX -Wl,--version-script=${TESSERA_EXPORTS} TESSERA_LINKER_HAS_VERSION_SCRIPTS)

# A library whose version and SONAME follow the project's.
function(tessera_add_library target)
    add_library(${target} ${ARGN})
    tessera_configure_target(${target})
    # The library's calls of its own functions are not replaceable from outside, and may be inlined.
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
    if(TESSERA_HARDENING)
        tessera_harden(${target})
    endif()
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR})
    get_target_property(type ${target} TYPE)
    # A sanitizer takes a function type for another one when its type info is not shared.
    if(type STREQUAL "SHARED_LIBRARY" AND TESSERA_LINKER_HAS_VERSION_SCRIPTS
            AND NOT TESSERA_SANITIZERS)
        target_link_options(${target} PRIVATE -Wl,--version-script=${TESSERA_EXPORTS})
        set_target_properties(${target} PROPERTIES LINK_DEPENDS ${TESSERA_EXPORTS})
    endif()
endfunction()
