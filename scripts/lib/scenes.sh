# Sourced by screenshots: search, reports and shifts, with the days of scripts/lib/days.py, and the boxes that no other scene
# brings up. Each takes WIDTHxHEIGHT SCALE ENDING.

# Set by who takes pictures of one scale: the scale, and the ending of the pictures' names.
scale=1
ending=""

# point X Y: the pointer, in places of the smaller screen.
point() {
  xdotool mousemove $(($1 * scale)) $(($2 * scale))
  sleep 1
}

# away: the pointer where it points at nothing.
away() {
  xdotool mousemove 1 1
}

# again COUNT KEY: the key so many times.
again() {
  local i
  for ((i = 0; i < $1; ++i)); do
    xdotool key --delay 60 "$2"
  done
  sleep 0.4
}

# report COUNT PICTURE [NAME]: the page that has been written as the station's COUNTth, and its figures.
report() {
  pages_shown "$1"
  pages_picture "$scale" "$images/$2$ending.png"
  [[ -z "${3:-}" || "$scale" != 1 ]] || pages_figures "$3"
}

# slip COUNT PICTURE: the COUNTth slip as it lies on a desk.
slip() {
  local file
  file="$(stage_slip "$1")"
  [[ "$scale" == 1 ]] || return 0
  pdftoppm -r 110 -gray -png -singlefile "$file" "$stage/slip"
  convert "$stage/slip.png" -bordercolor '#b8b8b8' -border 1 -strip "$images/$2.png"
  echo "$images/$2.png"
}

# box NAME TITLE: the box alone.
box() {
  stage_box "$2"
  stage_window "$images/$1$ending.png"
}

# menu: the menu of functions, and the keyboard on its button of that number, from 0.
menu() {
  stage_keys F8
  stage_box 'Menú'
  again $(($1 + 1)) Tab
}

# With the exits of three days, and nothing.
search() {
  stage_keys F5
  stage_box 'Búsqueda de Registros'
  again 3 shift+Tab
  stage_keys Home shift+End
  stage_type "$(date -d '2 days ago' +%d/%m/%Y)"
  again 3 Tab
  again 6 Return
  report 1 informe-busqueda busqueda
  point 670 140
  stage_picture "$images/busqueda$ending.png"
  # The keyboard is back at the main screen.
  point 1250 434
  xdotool click 1
  away
  stage_type 999
  again 6 Return
  sleep 1
  stage_window "$images/caja-busqueda$ending.png"
  stage_keys Return
  sleep 0.5
  stage_keys F5
  sleep 1
}

# Of who is inside, as a list on a slip too, and of one ficha.
state() {
  stage_keys F4
  stage_box 'Imprimir Estado'
  stage_picture "$images/informe-pregunta$ending.png"
  stage_keys Return
  sleep 0.5
  stage_window "$images/caja-resumen$ending.png"
  stage_keys alt+n
  report 2 informe-estado
  stage_type 7
  stage_keys Return
  sleep 1
  stage_keys F4
  stage_box 'Imprimir Estado'
  stage_keys alt+n
  report 3 informe-ficha
  stage_keys Escape
}

# From the buttons of the menu.
lists() {
  menu 0
  stage_keys Return
  stage_box 'Imprimir Historial'
  stage_window "$images/caja-historial$ending.png"
  stage_keys Return
  sleep 0.5
  stage_keys alt+n
  report 4 informe-historial historial
  slip 2 tira-historial
  stage_keys Tab Tab Return
  pages_shown 5
  pages_text "$scale" "$images/informe-extras$ending.png"
  stage_keys Tab Return
  pages_shown 6
  pages_text "$scale" "$images/informe-detalle$ending.png"
  stage_keys Tab Return
  report 7 informe-nuevos nuevos
  stage_keys Tab Return
  report 8 informe-puntos puntos
  stage_keys Tab Return
  pages_shown 9
  pages_text "$scale" "$images/informe-horario$ending.png"
  stage_keys Escape
}

# tickets_on: slips are printed, so the end of a shift asks for one.
tickets_on() {
  stage_keys ctrl+alt+k
  stage_box 'Impresión de Tiquetes'
  stage_keys Return
  sleep 1
}

shift_of_work() {
  menu 1
  stage_keys Return
  sleep 1.5
  stage_picture "$images/turno$ending.png"
  stage_type 7
  stage_keys Return
  sleep 1
  stage_type 20000
  stage_keys Return
  stage_box 'Confirmar'
  stage_window "$images/caja-retirar$ending.png"
  stage_keys Return
  sleep 1
  menu 1
  stage_picture "$images/menu-turno$ending.png"
  stage_keys Return
  stage_box 'Terminar Turno'
  stage_picture "$images/turno-terminar$ending.png"
  stage_keys Return
  sleep 0.5
  stage_keys Return
  report 10 informe-turno
  slip 3 tira-turno
  stage_keys Escape
}

# resets: what the last rows of the menu ask before they begin anew.
resets() {
  local row
  for row in extras historial; do
    stage_keys F8
    stage_box 'Menú'
    stage_keys End
    [[ $row == historial ]] || stage_keys Up
    stage_keys Return
    box "caja-$row-nuevo" 'Reiniciar'
    stage_keys alt+s
    box "caja-$row-advertencia" 'ADVERTENCIA'
    stage_keys Escape Escape
  done
}

# password: the lock asks for its first one.
password() {
  stage_keys F9
  stage_box 'Bloquear Funciones'
  point 540 158
  xdotool click 1
  away
  stage_keys Return
  box caja-clave-nueva 'Nueva Contraseña'
  stage_keys Escape Escape
}

# reports: from the search to the shift. Only its first run, at the usual scale, holds figures against the pages.
reports() {
  scale="$2" ending="$3"
  stage_begin "$1" "$2"
  scripts/lib/days.py "$station"
  stage_tirilla
  stage_station "$program"
  stage_welcome
  park 24
  away
  search
  state
  lists
  tickets_on
  shift_of_work
  resets
  password
  stage_end
}

# refused: what is locked, what is inside already, and what the disk doesn't give.
refused() {
  stage_type 60
  stage_keys Return
  stage_type klm483
  stage_keys Return
  box caja-ingreso 'Ingreso'
  stage_keys Return Escape
  stage_keys F4
  box caja-bloqueada 'Acceso Denegado'
  stage_keys Return
  rm "$station/Recursos/Vintoral.XTR"
  stage_keys ctrl+t
  box caja-tarifas 'Imposible Abrir'
  stage_keys Return
  mkdir "$station/Recursos/Vintoral.RGT.nuevo"
  menu 2
  stage_keys Return
  box caja-imprimir 'Imposible Imprimir'
  stage_keys Return Escape
}

# tickets_asked: what the switches of slips ask and tell.
tickets_asked() {
  tickets_on
  stage_keys ctrl+alt+b
  box caja-fuente 'Instalar Fuente'
  stage_keys Return ctrl+alt+b
  sleep 1
  point 550 26
  xdotool click 1
  box caja-tiquetes 'Impresión de Tiquetes'
  stage_keys Escape
  away
  scripts/lib/parked.py "$station/Multimedia/Vintoral.ACT" 1000
  stage_keys Home
  box caja-limite 'Generador'
  stage_keys Return
}

# boxes: the questions and answers that no other scene brings up.
boxes() {
  scale="$2" ending="$3"
  stage_begin "$1" "$2"
  scripts/lib/locked.py "$station/Recursos/Vintoral.EXT" 20517 6
  stage_tirilla
  stage_station "$program"
  box caja-bienvenido BIENVENIDO
  stage_keys Return
  sleep 4.5
  park 24
  away
  refused
  tickets_asked
  stage_keys alt+F4
  box caja-cerrar 'Cerrar'
  stage_keys Escape
  stage_end
}
