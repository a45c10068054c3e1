# The standard library's headers that nearly every source includes, compiled once: without it a source takes about twice
# as long. It holds none of our own headers, so that walls between layers stay walls.
set(precompiled_headers
    <algorithm> <array> <charconv> <cmath> <cstdint> <cstring> <functional> <map> <memory> <mutex> <string>
    <string_view> <unordered_map> <utility> <vector>)

# zol_precompiled(<target> [<compile option>...]): compilers want it once for each set of options.
function(zol_precompiled target)
    set(source ${CMAKE_BINARY_DIR}/generated/${target}.cpp)
    file(GENERATE OUTPUT ${source} CONTENT "// Carries the precompiled headers.\n")
    add_library(${target} OBJECT ${source})
    target_compile_options(${target} PRIVATE ${ARGN})
    target_precompile_headers(${target} PRIVATE ${precompiled_headers})
    # What the compiler cache takes for the precompiled file, which itself differs from folder to folder.
    string(SHA256 sum "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION} ${precompiled_headers}")
    foreach(suffix gch pch)
        file(WRITE ${CMAKE_BINARY_DIR}/CMakeFiles/${target}.dir/cmake_pch.hxx.${suffix}.sum ${sum})
    endforeach()
endfunction()

zol_precompiled(precompiled)
zol_precompiled(precompiled_hidden -fvisibility=hidden)
