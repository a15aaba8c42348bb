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

# with_simulated_radio PROGRAM [ARGUMENT...]: runs the program while a simulated radio answers on
# build/run/radio. Returns the program's exit code; the radio ends with it, or with this script,
# whatever ends that.
with_simulated_radio() {
  local home="$PWD/build/run" code=0
  mkdir -p "$home/config" "$home/data"
  mkdir -p -m 700 "$home/runtime"
  exec 9>"$home/lock"
  if ! flock --nonblock 9; then
    say "Another session with a simulated radio is still running"
    return 1
  fi
  trap end_session EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM HUP

  start_radio "$home/radio" "$home/radio.log"
  write_preferences "$home/config" "$home/radio"
  # In the background, so that a signal ends both at once instead of waiting for the window.
  XDG_CONFIG_HOME="$home/config" XDG_DATA_HOME="$home/data" \
    XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$home/runtime}" "$@" <&0 9>&- &
  sessionProgram=$!
  wait "$sessionProgram" || code=$?
  sessionProgram=""
  end_session
  return "$code"
}

# start_radio LINK LOG: the kernel ends the radio with this script, even if that is killed outright. In
# a session of its own it does not get the keyboard's Ctrl+C, which would pull it from under a console
# that is logging out.
start_radio() {
  rm -f "$1"
  sessionLink=$1
  setsid setpriv --pdeathsig TERM build/release/quillmark-radio --link "$1" --zone-traffic >"$2" 2>&1 </dev/null 9>&- &
  sessionRadio=$!
  if ! wait_for_link "$1" "$sessionRadio"; then
    say "The simulated radio did not start:"
    cat "$2" >&2
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
  local try
  for try in {1..100}; do
    [ ! -e "$1" ] || return 0
    kill -0 "$2" 2>/dev/null || return 1
    sleep 0.1
  done
  return 1
}
