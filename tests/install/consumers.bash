# Programs of somebody else's, built against an installed package. The caller sets `source` (this
# checkout), `prefix` (the installed tree), `folder` (for what is made, and the working directory)
# and `flags` (those that the package's own build needs of its users).

warnings="-Wall -Wextra -Wpedantic -Wshadow -Woverloaded-virtual -Werror"

fail() {
    echo "${0##*/}: $*" >&2
    exit 1
}

# What fails says so; what works says nothing.
quietly() {
    "$@" >"$folder/log" 2>&1 || {
        cat "$folder/log" >&2
        fail "failed: $*"
    }
}

# build_with_cmake PROJECT COMPILER STANDARD: into the folder that has PROJECT's last name.
build_with_cmake() {
    local name
    name=$(basename "$1")
    rm -rf "$name"
    quietly cmake -G Ninja -S "$1" -B "$name" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_CXX_COMPILER="$2" -DCMAKE_CXX_STANDARD="$3" -DCMAKE_CXX_EXTENSIONS=OFF \
        -DCMAKE_CXX_FLAGS="$warnings $flags"
    quietly cmake --build "$name"
}

# build_with_pkg_config SOURCE COMPILER STANDARD [MODULE...]: into the program with-pkg-config, with the
# library alone or with these modules of the package.
build_with_pkg_config() {
    local -a package modules=("${@:4}")
    [ ${#modules[@]} -gt 0 ] || modules=(RTType)
    read -ra package <<<"$(pkg-config --cflags --libs "${modules[@]/#/qd_wavedata_RTTI_}")"
    rm -f with-pkg-config
    # shellcheck disable=SC2086 # The warnings and flags are several words.
    quietly "$2" -std=c++"$3" $warnings $flags "$1" -o with-pkg-config "${package[@]}" \
        -Wl,-rpath,"$(pkg-config --variable=libdir qd_wavedata_RTTI_RTType)"
}

# build_and_run COMPILER STANDARD: the examples with CMake, and with pkg-config the simulator's and
# the program that uses every class. Each prints what it should.
build_and_run() {
    local expected=$source/tests/data/example-types.txt
    rm -f types.typ
    build_with_cmake "$source/examples/compiler" "$@"
    compiler/write_types types.typ >/dev/null
    build_with_cmake "$source/examples/simulator" "$@"
    simulator/read_types types.typ | diff "$expected" -
    build_with_pkg_config "$source/examples/simulator/main.cpp" "$@"
    ./with-pkg-config types.typ | diff "$expected" -
    build_with_pkg_config "$source/examples/compiler/main.cpp" "$@" TypeFile
    ./with-pkg-config by-module.typ >/dev/null
    cmp types.typ by-module.typ
    build_with_pkg_config "$source/tests/install/consumer.cpp" "$@"
    ./with-pkg-config | grep -qx 'all holds'
    echo "$1, C++$2: CMake and pkg-config"
}

# build_as_readme_says: the first program of the README by the README's own line.
build_as_readme_says() {
    local line
    rm -rf readme
    mkdir readme
    sed -n '/^```cpp$/,/^```$/{/^```/d;p};/^}$/q' "$source/README.md" >readme/main.cpp
    line=$(grep '^    g++ .* main\.cpp .*pkg-config' "$source/README.md") ||
        fail "the README has no line that builds its program"
    (cd readme && quietly bash -c "$line")
    (cd "$source" &&
        LD_LIBRARY_PATH=$(pkg-config --variable=libdir qd_wavedata_RTTI_RTType) "$folder/readme/a.out") |
        grep -qx 'integer: encoding 0' || fail "the program of the README prints something else"
    echo "the README's program, by the README's line"
}

# The folder of the package's libraries, from the prefix: its name is the system's.
library_folder() {
    (cd "$prefix" && dirname "$(find . -name 'libqd_wavedata_RTTI_OVAT.a' | sed 's|^\./||')")
}
