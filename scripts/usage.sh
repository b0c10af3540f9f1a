# Every shell script that a user runs sources this file first. The option --help prints the comment at the top of the
# script. If a script does not accept an argument, it prints an error that names the argument.

script_name=$(basename "$0")

# answer_help "$@": if the first argument is -h or --help, prints the help text and ends the script.
answer_help() {
    case "${1:-}" in
    -h | --help)
        sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$0"
        exit 0
        ;;
    esac
}

refuse() { # WORDS: prints the problem (WORDS) and ends the script with exit code 2
    echo "$script_name: $*; see '$script_name --help'" >&2
    exit 2
}

# takes_nothing "$@": checks the command line of a script without arguments.
takes_nothing() {
    answer_help "$@"
    [ $# -eq 0 ] || refuse "unexpected argument '$1'"
}
