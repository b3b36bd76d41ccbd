# Sourced by the scripts: ensure_packages PKG... installs those of the given
# Debian packages that are missing (with sudo when not root) and does
# nothing when all are there.
ensure_packages() {
  local missing=() p
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local sudo_cmd=()
  [ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# What building, running and testing the programs needs.
base_packages=(
  build-essential cmake
  qt6-base-dev qt6-serialport-dev qt6-translations-l10n libgl-dev
  fonts-noto-cjk fonts-dejavu-core
  xvfb xauth poppler-utils
)
