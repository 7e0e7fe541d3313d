# Runs Windows programs under Wine: sourced, after setup.sh. They are those of the preset
# windows_preset, of windows-x64 when it is not set. What is started ends with the shell.

: "${windows_preset:=windows-x64}"
windows_workbench=build/$windows_preset/workbench/workbench.exe

export WINEDEBUG=${WINEDEBUG:--all}
# A program that crashes ends. Wine's debugger would wait for somebody.
export WINEDLLOVERRIDES=winedbg.exe=d
case $windows_preset in
  windows-x86) export WINEPREFIX=$PWD/build/wine32 WINEARCH=win32 ;;
  *) export WINEPREFIX=$PWD/build/wine WINEARCH=win64 ;;
esac

# Runs a program for at most wine_limit seconds, without Wine's messages about the missing 32-bit version.
in_wine() { timeout -k 5 "${wine_limit:-600}" wine "$@" 2> >(sed -e '/wine32/d' -e '/multiarch/d' -e '/^wine: configuration/d' -e '/^$/d' >&2); }

# start_virtual_screen [bare]: starts a virtual screen of screen_size, with a window manager unless it is bare.
# It must exist before Wine's server, which keeps the screen that it was started with.
start_virtual_screen() {
  local number pids=()
  mkdir -p build
  coproc SCREEN { exec Xvfb -displayfd 1 -screen 0 "${screen_size:-1600x1000}x24" -nolisten tcp 2>build/screen.log; }
  pids+=("$SCREEN_PID")
  read -r -t 30 number <&"${SCREEN[0]}" || fail "the virtual screen does not start, see build/screen.log"
  export DISPLAY=:$number
  if [[ ${1:-} != bare ]]; then
    openbox >/dev/null 2>&1 &
    pids+=("$!")
  fi
  # shellcheck disable=SC2064 # the processes of now
  trap "wineserver -k 2>/dev/null || true; kill ${pids[*]} 2>/dev/null || true" EXIT
}
