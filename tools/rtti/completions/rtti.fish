# Completion of rtti for fish. Subcommands and options are those that the program's --help lists, so
# that nothing here has to follow a change of them.

function __rtti_subcommands
    rtti --help 2>/dev/null | string match -r '^  [a-z]+  .*' |
        string replace -r '^  ([a-z]+) +' '$1\t'
end

# The options of the subcommand that stands on the command line.
function __rtti_options
    set -l words (commandline -opc)
    for line in (rtti $words[2] --help 2>/dev/null | string match -r '^  -.*')
        set -l names (string replace -r '^  (-[^ ]*).*' '$1' -- $line)
        set -l text (string replace -r '.*   +' '' -- (string replace -r '^  ' '' -- $line))
        for name in (string split , -- $names)
            printf '%s\t%s\n' $name $text
        end
    end
end

# Whether the option before the cursor takes a value that is named by one of the words given.
function __rtti_wants
    set -l words (commandline -opc)
    test (count $words) -gt 2; or return 1
    set -l value (rtti $words[2] --help 2>/dev/null |
        string match -r -g -- "^  (?:-[^ ]*,)?$words[-1] ([A-Z]+)")
    contains -- "$value" $argv
end

# The values that the option before the cursor takes, where --help lists them: LANGUAGE:{vhdl,sv}.
function __rtti_choices
    set -l words (commandline -opc)
    test (count $words) -gt 2; or return 1
    set -l choices (rtti $words[2] --help 2>/dev/null |
        string match -r -g -- "^  (?:-[^ ]*,)?$words[-1] [A-Z]+:\{([^}]+)\}")
    and string split , -- $choices
end

function __rtti_wants_kind
    test (commandline -opc)[-1] = --kind
end

# The kinds of types, with '-' for spaces, as --kind takes them.
function __rtti_kinds
    rtti dump --kind '?' /dev/null 2>&1 | string replace -r '.*There are: ' '' |
        string split ', ' | string replace -a ' ' -
end

complete -c rtti -n __fish_use_subcommand -f -a '(__rtti_subcommands)'
complete -c rtti -n __fish_use_subcommand -s h -l help -d 'Print help'
complete -c rtti -n __rtti_wants_kind -f -a '(__rtti_kinds)'
complete -c rtti -n '__rtti_choices >/dev/null' -f -a '(__rtti_choices)'
complete -c rtti -n '__rtti_wants TYPE N GLOB' -f
complete -c rtti -n 'not __fish_use_subcommand; and string match -q -- "-*" (commandline -ct)' \
    -f -a '(__rtti_options)'
