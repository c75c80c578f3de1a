# Sourced by the scripts: configures and builds one preset.

# build PRESET [arguments of cmake --build]
build() {
  local preset="$1"
  shift
  echo "== build $preset"
  cmake --preset "$preset" --log-level=WARNING && cmake --build --preset "$preset" "$@"
}
