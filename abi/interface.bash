# What abi/check and its test share; to be sourced.

# describe LIBRARY INCLUDE OUTPUT: the interface that the library offers through the headers of INCLUDE.
describe() {
    abidw --exported-interfaces-only --drop-private-types --headers-dir "$2" --no-corpus-path \
        --no-comp-dir-path --no-show-locs --no-elf-needed --out-file "$3" "$1"
}

# is_same RECORD NOW: whether both describe one interface; says what differs.
is_same() { abidiff --harmless "$1" "$2"; }
