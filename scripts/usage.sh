# Sourced by the scripts before they do anything: --help shows the comment at the script's head, and an argument that
# the script does not take is refused by name.

script_name=$(basename "$0")

# answer_help "$@": shows the help and ends the script when that is what is asked for.
answer_help() {
    case "${1:-}" in
    -h | --help)
        sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$0"
        exit 0
        ;;
    esac
}

refuse() { # WORDS: what cannot be understood
    echo "$script_name: $*; --help shows what it takes" >&2
    exit 2
}

# takes_nothing "$@": for a script without arguments.
takes_nothing() {
    answer_help "$@"
    [ $# -eq 0 ] || refuse "there is no argument '$1'"
}
