# Sourced by the scripts that do several things in a row: each phase is a line on the screen, its output a file in
# build/logs/. Works in the project's folder.

phase_logs=build/logs

# phase NAME COMMAND [ARG…]: runs COMMAND and prints how long it took. If it fails, prints the end of its output and returns
# its exit code.
phase() {
    local name=$1 log code=0 start=$SECONDS
    shift
    log=$phase_logs/${name// /-}.log
    mkdir -p "$phase_logs"
    # In the background: in front of "||" a function that is the command would not stop at the first step that fails.
    (set -e; "$@") >"$log" 2>&1 </dev/null &
    wait $! || code=$?
    if [ "$code" -eq 0 ]; then
        printf '%-16s %4d s\n' "$name" $((SECONDS - start))
        return
    fi
    {
        printf '%-16s failed after %d s; the end of %s:\n' "$name" $((SECONDS - start)) "$log"
        tail -n 40 "$log" | sed 's/^/    /'
    } >&2
    return "$code"
}
