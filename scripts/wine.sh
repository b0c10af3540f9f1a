# Sets the environment for Wine, and has functions for X displays and Wine prefixes. Scripts that run Windows programs
# source this file. The caller must set `root` to the project's folder.

export WINEARCH=win32
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
# Without a locale, Windows programs cannot use file names with characters outside ASCII.
[ -n "${LC_ALL:-}${LC_CTYPE:-}${LANG:-}" ] || export LC_ALL=C.UTF-8

# start_xvfb NUMBER_FILE: starts an X display without a window manager in the background. Writes the display's number to
# NUMBER_FILE and sets $xvfb to the process ID. Fails if the display is not ready within ten seconds.
start_xvfb() {
    : >"$1"
    setsid Xvfb -displayfd 9 -screen 0 1280x1024x24 -nolisten tcp 9>"$1" >/dev/null 2>&1 7>&- 8>&- &
    xvfb=$!
    for _ in $(seq 200); do
        [ -s "$1" ] && return
        sleep 0.05
    done
    kill "$xvfb" 2>/dev/null || true
    echo "$script_name: no display started within ten seconds; check that Xvfb is installed ('scripts/setup demo' installs it)" >&2
    return 1
}

# Creates the prefix $WINEPREFIX. This takes about ten seconds.
make_prefix() {
    mkdir -p "$(dirname "$WINEPREFIX")"
    wineboot --init
    # Without a window manager, each managed window would wait two seconds for a window manager.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    # With this setting, a program that crashes prints a backtrace and ends. Without this setting, the program would
    # show a dialog and wait.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
    wineserver -w
    install_fonts
}

# Copies two fonts of Wine into the prefix, because Debian installs them in a separate folder. Marlett draws the buttons
# of title bars. MS Sans Serif is copied in its sizes for 96 and 120 dots per inch.
install_fonts() {
    local fonts=/usr/share/wine/fonts
    cp "$fonts"/marlett.ttf "$fonts"/sserif*.fon "$fonts"/sse[ef]1257.fon "$WINEPREFIX/drive_c/windows/Fonts/"
}

# Creates the template of all prefixes if the template does not exist. Later programs run in copies of the template
# only. Needs a display.
ensure_template() {
    template=$root/build/wine-template
    [ -e "$template/.ready" ] && return
    command -v wine >/dev/null || { echo "$script_name: wine is not installed; run 'scripts/setup demo'" >&2; return 1; }
    mkdir -p "$root/build"
    (
        flock 7
        [ -e "$template/.ready" ] && exit
        rm -rf "$template"
        # make_prefix runs in the background, because "set -e" has no effect in a function in front of "||".
        (set -e; export WINEPREFIX=$template; make_prefix) 7>&- >"$template.log" 2>&1 &
        wait $! || { echo "$script_name: cannot create the Wine prefix $template:" >&2; cat "$template.log" >&2; exit 1; }
        touch "$template/.ready"
    ) 7>"$template.lock"
}

# copy_template FOLDER: creates a Wine prefix from the template. The prefix gets its name when the copy is complete. All
# prefixes share the files of Wine's system folder as hard links, because programs only read those files. All other
# files are copied. If hard links are not possible, all files are copied.
copy_template() {
    local new=$1.$$ system=drive_c/windows/system32
    mkdir -p "$new/drive_c/windows"
    cp -al "$template/$system" "$new/$system" 2>/dev/null || cp -a "$template/$system" "$new/$system"
    tar -C "$template" -cf - --exclude="./$system" . | tar -C "$new" -xf -
    mv -T "$new" "$1" 2>/dev/null || rm -rf "$new" # another script has created the prefix first
}
