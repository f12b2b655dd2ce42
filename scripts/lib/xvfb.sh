# Sourced by the screenshot scripts. start_xvfb GEOMETRY starts a virtual X server on a display
# number no other server uses (Xvfb picks it and tells it through -displayfd), exports DISPLAY,
# and leaves the server's process id in $xvfb. It returns once the server accepts clients.
start_xvfb() {
  local fifo number
  fifo=$(mktemp -u)
  mkfifo "$fifo"
  Xvfb -displayfd 3 -screen 0 "$1" 3>"$fifo" >/dev/null 2>&1 &
  xvfb=$!
  if ! read -r -t 20 number <"$fifo"; then
    rm -f "$fifo"
    echo "Xvfb did not start" >&2
    return 1
  fi
  rm -f "$fifo"
  export DISPLAY=":$number"
}
