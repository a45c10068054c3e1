# The standard library's headers that nearly every source includes, compiled once: without it a source takes about twice
# as long. It holds none of our own headers, so that walls between layers stay walls.
set(precompiled_headers
    <algorithm> <array> <charconv> <cmath> <cstdint> <cstring> <functional> <map> <memory> <mutex> <string>
    <string_view> <unordered_map> <utility> <vector>)

# zol_precompiled(<target> [OPTIONS <compile option>...] [HEADERS <header>...] [LIBRARIES <library>...]): compilers want it
# once for each set of options. HEADERS are more of them, LIBRARIES are whose headers these are.
function(zol_precompiled target)
    cmake_parse_arguments(PARSE_ARGV 1 PRECOMPILED "" "" "OPTIONS;HEADERS;LIBRARIES")
    set(headers ${precompiled_headers} ${PRECOMPILED_HEADERS})
    set(source ${CMAKE_BINARY_DIR}/generated/${target}.cpp)
    file(GENERATE OUTPUT ${source} CONTENT "// Carries the precompiled headers.\n")
    add_library(${target} OBJECT ${source})
    target_compile_options(${target} PRIVATE ${PRECOMPILED_OPTIONS})
    target_link_libraries(${target} PRIVATE ${PRECOMPILED_LIBRARIES})
    target_precompile_headers(${target} PRIVATE ${headers})
    # What the compiler cache takes for the precompiled file, which itself differs from folder to folder.
    string(SHA256 sum "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION} ${headers} ${PRECOMPILED_OPTIONS}")
    foreach(suffix gch pch)
        file(WRITE ${CMAKE_BINARY_DIR}/CMakeFiles/${target}.dir/cmake_pch.hxx.${suffix}.sum ${sum})
    endforeach()
endfunction()

zol_precompiled(precompiled)
zol_precompiled(precompiled_hidden OPTIONS -fvisibility=hidden)
