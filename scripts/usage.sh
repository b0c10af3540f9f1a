# Sourced by each script first. --help prints the comment at the top of the script. An argument that the script does not
# accept is an error that names it.

script_name=$(basename "$0")

# answer_help "$@": if the first argument asks for help, prints it and ends the script.
answer_help() {
    case "${1:-}" in
    -h | --help)
        sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$0"
        exit 0
        ;;
    esac
}

refuse() { # WORDS: the problem
    echo "$script_name: $*; see --help" >&2
    exit 2
}

# takes_nothing "$@": for a script without arguments.
takes_nothing() {
    answer_help "$@"
    [ $# -eq 0 ] || refuse "unexpected argument '$1'"
}
