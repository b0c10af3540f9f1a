# Sourced by the scripts that run Windows programs: the environment of Wine, displays, and how a prefix is made.
# Expects `root`, the project's folder.

export WINEARCH=win32
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
# Without a locale Windows programs could not name files outside ASCII.
[ -n "${LC_ALL:-}${LC_CTYPE:-}${LANG:-}" ] || export LC_ALL=C.UTF-8

# start_xvfb NUMBER_FILE: starts a display without a window manager in the background. Its number is then in the file,
# its process in $xvfb. False if no display came up within ten seconds.
start_xvfb() {
    : >"$1"
    setsid Xvfb -displayfd 9 -screen 0 1280x1024x24 -nolisten tcp 9>"$1" >/dev/null 2>&1 7>&- 8>&- &
    xvfb=$!
    for _ in $(seq 200); do
        [ -s "$1" ] && return
        sleep 0.05
    done
    kill "$xvfb" 2>/dev/null || true
    echo "$script_name: no display came up within ten seconds; is Xvfb there? scripts/setup demo installs it" >&2
    return 1
}

# Makes the prefix $WINEPREFIX from nothing, which takes some ten seconds.
make_prefix() {
    mkdir -p "$(dirname "$WINEPREFIX")"
    wineboot --init
    # Without a window manager each managed window waits two seconds for one.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    # A program that crashes ends, with a backtrace; it does not wait until its window is closed.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
    wineserver -w
}

# Makes the template of all prefixes, in which no other program ever runs, unless it is there already. Needs a display.
ensure_template() {
    template=$root/build/wine-template
    [ -e "$template/.ready" ] && return
    command -v wine >/dev/null || { echo "$script_name: there is no wine; scripts/setup demo installs it" >&2; return 1; }
    mkdir -p "$root/build"
    (
        flock 7
        [ -e "$template/.ready" ] && exit
        rm -rf "$template"
        # In the background: in front of "||" the shell would not stop at the first step that fails.
        (set -e; export WINEPREFIX=$template; make_prefix) 7>&- >"$template.log" 2>&1 &
        wait $! || { echo "$script_name: the Wine prefix $template could not be made:" >&2; cat "$template.log" >&2; exit 1; }
        touch "$template/.ready"
    ) 7>"$template.lock"
}

# copy_template FOLDER: makes a Wine prefix, which appears under its name when it is complete. Programs only read the files
# of Wine's own system folder, so all prefixes share them as hard links; everything else is copied.
copy_template() {
    local new=$1.$$ system=drive_c/windows/system32
    mkdir -p "$new/drive_c/windows"
    cp -al "$template/$system" "$new/$system" 2>/dev/null || cp -a "$template/$system" "$new/$system"
    tar -C "$template" -cf - --exclude="./$system" . | tar -C "$new" -xf -
    mv -T "$new" "$1" 2>/dev/null || rm -rf "$new" # another run was quicker
}
