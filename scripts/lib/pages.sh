# Sourced by screenshots: looks at the reports as an operator does, in a browser and in a spreadsheet. Both programs are for
# looking only; without them a script says so and goes on.

# pages_can: which of the two are missing, once.
pages_can() {
  command -v chromium >/dev/null || echo "No chromium here (apt-get install chromium): no pictures of pages." >&2
  command -v soffice >/dev/null || echo "No soffice here (apt-get install libreoffice-calc): no figures compared." >&2
}

# pages_shown COUNT: until the station has opened so many files.
pages_shown() {
  stage_wait sh -c '[ "$(wc -l <"$1")" -ge "$2" ]' - "$stage/opened" "$1"
}

# pages_browse FILE WIDTH,HEIGHT SCALE PICTURE
pages_browse() {
  local options=(--headless=new --disable-gpu --hide-scrollbars "--user-data-dir=$stage/browser" "--window-size=$2"
    "--force-device-scale-factor=$3" "--screenshot=$4")
  [[ "$(id -u)" != 0 ]] || options+=(--no-sandbox)
  timeout 60 chromium "${options[@]}" "file://$1" >/dev/null 2>&1 || {
    echo "The browser made no picture of $1." >&2
    return 1
  }
}

# pages_frame SCALE PICTURE: without what is empty around it, on a sheet.
pages_frame() {
  convert "$2" -trim -bordercolor white -border $((12 * $1)) -bordercolor '#b8b8b8' -border 1 +repage -strip "$2"
  echo "$2"
}

# pages_picture SCALE PICTURE: the page that the station has just written, on a screen of 1366 x 768.
pages_picture() {
  command -v chromium >/dev/null || return 0
  pages_browse "$station/Recursos/Vintoral.HTML" 1366,768 "$1" "$2"
  pages_frame "$1" "$2"
}

# pages_text SCALE PICTURE: the text that the station has just written, as an editor shows it.
pages_text() {
  command -v chromium >/dev/null || return 0
  {
    echo '<meta charset=windows-1252><style>body{margin:0}pre{font:15px/19px "DejaVu Sans Mono"}</style><pre>'
    sed 's/&/\&amp;/g; s/</\&lt;/g' "$station/Recursos/Vintoral.RGT"
  } >"$stage/text.html"
  pages_browse "$stage/text.html" 640,1200 "$1" "$2"
  pages_frame "$1" "$2"
}

# pages_figures REPORT: the page once through a spreadsheet; its figures are held against those of scripts/lib/days.py.
pages_figures() {
  command -v soffice >/dev/null || return 0
  cp "$station/Recursos/Vintoral.HTML" "$stage/$1.html"
  timeout 120 soffice --headless "-env:UserInstallation=file://$stage/office" --infilter='HTML (StarCalc)' \
    --convert-to 'csv:Text - txt - csv (StarCalc):44,34,76,1' --outdir "$stage" "$stage/$1.html" >/dev/null 2>&1 || {
    echo "The spreadsheet made nothing of the page: $1." >&2
    return 1
  }
  scripts/lib/figures.py "$1" "$stage/$1.csv"
}
