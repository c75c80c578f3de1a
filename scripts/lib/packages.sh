# Sourced by the scripts: installs what scripts/packages.txt lists and this machine lacks.

packages_file="$(dirname "${BASH_SOURCE[0]}")/../packages.txt"

# packages_of GROUP...: the packages of these groups, one a line.
packages_of() {
  local line group="" wanted=" $* "
  while IFS= read -r line; do
    line="${line%%#*}"
    line="${line//[[:space:]]/}"
    case "$line" in
      "") ;;
      "["*"]") group="${line:1:-1}" ;;
      *) [[ "$wanted" == *" $group "* ]] && echo "$line" ;;
    esac
  done <"$packages_file"
  return 0
}

# packages_missing GROUP...: those of them that are not installed. Asks only this machine.
packages_missing() {
  local package
  for package in $(packages_of "$@"); do
    [[ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" == installed ]] || echo "$package"
  done
}

packages_apt() {
  # Another installer may be at work on this machine: wait for it.
  local command=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 "$@")
  if [[ "$(id -u)" != 0 ]]; then
    if ! command -v sudo >/dev/null; then
      echo "Installing needs root, and there is no sudo here: run this once as root." >&2
      return 1
    fi
    command=(sudo "${command[@]}")
  fi
  "${command[@]}" </dev/null
}

# packages_install GROUP...: says what is missing and installs it; with nothing missing it does nothing at all.
packages_install() {
  local missing
  if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system: please install what scripts/packages.txt lists." >&2
    return 1
  fi
  mapfile -t missing < <(packages_missing "$@")
  [[ ${#missing[@]} -gt 0 ]] || return 0
  echo "Missing, about to be installed with apt-get: ${missing[*]}"
  # A mirror that is just being renewed answers with a mismatch; a moment later it is whole.
  packages_apt update || { sleep 5 && packages_apt update; } || return 1
  packages_apt install -y --no-install-recommends "${missing[@]}" || return 1
  mapfile -t missing < <(packages_missing "$@")
  if [[ ${#missing[@]} -gt 0 ]]; then
    echo "Still missing: ${missing[*]}" >&2
    return 1
  fi
}
