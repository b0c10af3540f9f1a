# Scripts with several steps source this file. Each step is a phase. A phase writes the step's output to a file in
# build/logs/. On the screen, it prints one line; after a failure, also the end of the output. The current folder must
# be the project's folder.

phase_logs=build/logs

# phase NAME COMMAND [ARG…]: runs COMMAND and prints the duration. If COMMAND fails, prints the end of COMMAND's output
# and returns COMMAND's exit code.
phase() {
    local name=$1 log code=0 start=$SECONDS
    shift
    log=$phase_logs/${name// /-}.log
    mkdir -p "$phase_logs"
    # COMMAND runs in the background and "||" follows "wait", because "set -e" has no effect before "||".
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
