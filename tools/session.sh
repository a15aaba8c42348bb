# shellcheck shell=bash
# A console's session with a simulated radio, in folders of its own. Sourced by ./dev.

# Windows come through X; a Wayland desktop offers that too.
has_display() {
  [ -n "${DISPLAY:-}" ]
}

# write_preferences FOLDER LINK: Com1 is the simulated radio, and the console connects at once.
write_preferences() {
  mkdir -p "$1/quillmark-console"
  cat >"$1/quillmark-console/preferences.ini" <<END
[Ports]
Com1=$2

[Properties]
CommPort=1

[Preferences]
ConnectOnLaunch=True
END
}

sessionRadio=""
sessionProgram=""
sessionLink=""

# begin_session HOME BUILD: HOME gets folders for a user of its own, and the simulated radio of the
# build folder BUILD answers on HOME/radio. The radio ends with this script, whatever ends that.
begin_session() {
  mkdir -p "$1/config" "$1/data" "$1/runtime"
  chmod 700 "$1/runtime"
  exec 9>"$1/lock"
  if ! flock --nonblock 9; then
    say "Another session with a simulated radio is still running in $1"
    return 1
  fi
  trap end_session EXIT
  start_radio "$2/quillmark-radio" "$1"
  write_preferences "$1/config" "$1/radio"
}

# with_simulated_radio PROGRAM [ARGUMENT...]: runs the program while a simulated radio answers on
# build/run/radio. Returns the program's exit code; the radio ends with it.
with_simulated_radio() {
  local home="$PWD/build/run" code=0
  begin_session "$home" build/release
  trap 'exit 130' INT
  trap 'exit 143' TERM HUP

  # In the background, so that a signal ends both at once instead of waiting for the window.
  XDG_CONFIG_HOME="$home/config" XDG_DATA_HOME="$home/data" \
    XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$home/runtime}" "$@" <&0 9>&- &
  sessionProgram=$!
  wait "$sessionProgram" || code=$?
  sessionProgram=""
  end_session
  return "$code"
}

# debug_with_simulated_radio PROGRAM [ARGUMENT...]: the same under gdb, in build/debug. The
# variables are set for the program alone: gdb keeps the person's own settings.
debug_with_simulated_radio() {
  local home="$PWD/build/debug" code=0
  begin_session "$home" build/dev
  local surroundings=(-iex "set environment XDG_CONFIG_HOME $home/config"
                      -iex "set environment XDG_DATA_HOME $home/data")
  [ -n "${XDG_RUNTIME_DIR:-}" ] ||
    surroundings+=(-iex "set environment XDG_RUNTIME_DIR $home/runtime")
  has_display || surroundings+=(-iex "set environment QT_QPA_PLATFORM offscreen")
  # Ctrl+C belongs to gdb, which stops the program with it.
  trap : INT
  gdb -q "${surroundings[@]}" --args "$@" 9>&- || code=$?
  end_session
  return "$code"
}

# start_radio PROGRAM HOME: serves HOME/radio; HOME/lines.log holds the lines that it receives, with
# secrets masked. The kernel ends the radio with this script, even if that is killed outright. In a
# session of its own it does not get the keyboard's Ctrl+C, which would pull it from under a console
# that is logging out.
start_radio() {
  sessionLink=$2/radio
  rm -f "$sessionLink" "$2/lines.log"
  setsid setpriv --pdeathsig TERM "$1" --link "$sessionLink" --log "$2/lines.log" --zone-traffic \
    >"$2/radio.log" 2>&1 </dev/null 9>&- &
  sessionRadio=$!
  if ! wait_for_link "$sessionLink" "$sessionRadio"; then
    say "The simulated radio did not start:"
    cat "$2/radio.log" >&2
    return 1
  fi
}

end_session() {
  local process
  for process in $sessionProgram $sessionRadio; do
    kill "$process" 2>/dev/null || true
    wait "$process" 2>/dev/null || true
  done
  [ -z "$sessionLink" ] || rm -f "$sessionLink"
  sessionProgram=""
  sessionRadio=""
  sessionLink=""
  exec 9>&-
}

# wait_for_link LINK PROCESS: True as soon as the link stands, False when the process has ended
# before, or after ten seconds.
wait_for_link() {
  local tries=100
  while [ $((tries--)) -gt 0 ]; do
    [ ! -e "$1" ] || return 0
    kill -0 "$2" 2>/dev/null || return 1
    sleep 0.1
  done
  return 1
}
