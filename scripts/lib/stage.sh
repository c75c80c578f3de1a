# Sourced by screenshots, slips and demo: a screen of its own, a home and a station of its own on it, and hands for both;
# a printer, and a camera, for who asks. What the station opens is noted, and shown by nobody.
# What is started ends with the script, each by its own number.

stage_started=()

stage_end() {
  local i
  for ((i = ${#stage_started[@]} - 1; i >= 0; --i)); do
    kill "${stage_started[i]}" 2>/dev/null && wait "${stage_started[i]}" 2>/dev/null || true
  done
  [[ -z "${stage:-}" ]] || rm -rf "$stage"
  [[ -z "${stage_printer:-}" ]] || rm -rf "$stage_printer"
  stage_started=()
  stage=""
  stage_printer=""
  unset CUPS_SERVER
}

# stage_begin WIDTHxHEIGHT SCALE: an empty screen and a station's folder with what an installation brings; sets stage,
# station and DISPLAY.
stage_begin() {
  stage="$(mktemp -d)"
  station="$stage/home/Vintoral"
  mkdir -p "$stage/home/Desktop" "$stage/home/.config/openbox" "$stage/run" "$stage/bin"
  chmod 700 "$stage/run"
  printf '#!/bin/sh\necho "$1" >>"%s"\n' "$stage/opened" >"$stage/bin/xdg-open"
  chmod +x "$stage/bin/xdg-open"
  : >"$stage/opened"
  scripts/install-data "$station"
  # It starts beside a station that runs on this machine.
  mkdir -p "$station/Recursos" && touch "$station/Recursos/Vintoral.RLD"
  # Boxes keep their title; the station has the whole screen.
  cat >"$stage/home/.config/openbox/rc.xml" <<'XML'
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme><name>Clearlooks</name><titleLayout>LC</titleLayout></theme>
  <applications><application type="normal" name="vintoral"><decor>no</decor></application></applications>
</openbox_config>
XML
  export XAUTHORITY="$stage/cookie" HOME="$stage/home" XDG_RUNTIME_DIR="$stage/run" QT_SCALE_FACTOR="$2"
  touch "$XAUTHORITY"
  xauth -q add :0 . "$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')" 2>/dev/null
  Xvfb -displayfd 3 -auth "$XAUTHORITY" -screen 0 "$1x24" -nolisten tcp -noreset 3>"$stage/display" 2>/dev/null &
  stage_started+=($!)
  stage_wait test -s "$stage/display"
  DISPLAY=":$(<"$stage/display")"
  export DISPLAY
  xauth -q add "$DISPLAY" . "$(xauth list | awk 'NR == 1 { print $3 }')" 2>/dev/null
  openbox 2>/dev/null &
  stage_started+=($!)
  # A window that comes while the window manager is starting is lost.
  stage_wait sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
}

# stage_wait COMMAND...: until it is true, fifteen seconds at most.
stage_wait() {
  local i
  for ((i = 0; i < 150; ++i)); do
    ! "$@" >/dev/null 2>&1 || return 0
    sleep 0.1
  done
  echo "Nothing came of: $*" >&2
  return 1
}

# A station that starts after this has a printer, "tirilla". It lies beside the stage: its server's programs run as a user
# that must not see the screen's cookie.
stage_tirilla() {
  stage_printer="$(mktemp -d)"
  scripts/lib/printer.py "$stage_printer" &
  stage_started+=($!)
  stage_wait test -s "$stage_printer/address"
  CUPS_SERVER="$(<"$stage_printer/address")"
  export CUPS_SERVER
}

# stage_slip NUMBER: until so many slips have been printed; says which file is the last one.
stage_slip() {
  local slip="$stage_printer/out/tirilla-$1.pdf"
  stage_wait test -f "$slip"
  echo "$slip"
}

# A station that starts after this has a camera on the network, "Entrada", which sees the empty road.
stage_camera() {
  mkdir "$stage/camera"
  stage_scene
  scripts/lib/camera.py "$stage/camera" &
  stage_started+=($!)
  stage_wait test -s "$stage/camera/address"
  mkdir -p "$station/Objetos"
  echo "Entrada = $(<"$stage/camera/address")" >"$station/Objetos/Camaras.INI"
}

# stage_scene [PLATE COLOUR]: what that camera sees from here on; the picture has come when this returns.
stage_scene() {
  scripts/lib/scene "$stage/camera/frame.jpg" "$@"
  sleep 0.7
}

# stage_station PROGRAM: starts the station; it is on screen when this returns.
stage_station() {
  (cd "$station" && PATH="$stage/bin:$PATH" exec "$1") &
  stage_started+=($!)
  stage_wait xdotool search --onlyvisible --name '^Vintoral'
}

# The first start says hello; the link is up three seconds later.
stage_welcome() {
  stage_box BIENVENIDO
  stage_keys Return
  sleep 4.5
}

# stage_box TITLE: until the box of that title is there.
stage_box() {
  stage_wait xdotool search --onlyvisible --name "$1"
  sleep 0.5
}

stage_keys() {
  xdotool key --delay 60 "$@"
  sleep 0.4
}

stage_type() {
  xdotool type --delay 40 "$1"
  sleep 0.4
}

stage_picture() {
  sleep 0.4
  import -silent -window root "$1"
  echo "$1"
}

# stage_window FILE: the window that has the keyboard, with its title bar and nothing around it.
stage_window() {
  sleep 0.4
  import -silent -frame -window "$(xdotool getactivewindow)" "$1"
  convert "$1" +repage -strip "$1"
  echo "$1"
}
