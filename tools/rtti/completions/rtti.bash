# Completion of rtti for bash. Subcommands and options are those that the program's --help lists, so
# that nothing here has to follow a change of them.

# _rtti_kinds PROGRAM: the kinds of types, with '-' for spaces, as --kind takes them.
_rtti_kinds() {
    "$1" dump --kind '?' /dev/null 2>&1 | sed -n 's/.*There are: //p' | sed 's/, /\n/g' | tr ' ' -
}

_rtti() {
    local program=${1/#\~/$HOME} current=$2 previous=$3 subcommand="" help value i
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            subcommand=${COMP_WORDS[i]}
            break
        fi
    done
    help=$("$program" ${subcommand:+"$subcommand"} --help 2>/dev/null)

    if [[ $previous == -* ]]; then
        # What the option takes: the word after its names, such as N or LANGUAGE:{vhdl,sv};
        # nothing for a flag.
        value=$(sed -nE "s/^  (-[^ ]*,)?$previous ([^ ]+).*/\2/p" <<<"$help")
        case $previous:$value in
        --kind:*)
            mapfile -t COMPREPLY < <(compgen -W "$(_rtti_kinds "$program")" -- "$current")
            return
            ;;
        *:*{*})
            value=${value#*\{}
            value=${value%\}}
            mapfile -t COMPREPLY < <(compgen -W "${value//,/ }" -- "$current")
            return
            ;;
        *:TYPE | *:N | *:GLOB) return ;;
        *:?*)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
            ;;
        esac
    fi
    if [[ $current == -* ]]; then
        value=$(sed -nE 's/^  (-[^ ]*).*/\1/p' <<<"$help")
        mapfile -t COMPREPLY < <(compgen -W "${value//,/ }" -- "$current")
    elif [[ -z $subcommand ]]; then
        value=$(sed -nE '/^Subcommands:/,/^$/s/^  ([a-z]+) .*/\1/p' <<<"$help")
        mapfile -t COMPREPLY < <(compgen -W "$value" -- "$current")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}
complete -F _rtti rtti
