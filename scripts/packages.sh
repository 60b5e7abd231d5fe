# Sourced by ./run and ./test: installs the missing packages of packages.debian.

# packages_of GROUP...: the packages of these groups
packages_of() {
  awk -v wanted=" $* " '/^#/ { group = $2; next } NF && index(wanted, " " group " ") { print $1 }' packages.debian
}

# install_missing ASK GROUP...: ASK "yes" asks before using apt through sudo
install_missing() {
  local ask=$1; shift
  command -v dpkg-query >/dev/null || { echo "This is no Debian system: please install the equivalents of packages.debian yourself."; return 0; }
  local missing=() package
  for package in $(packages_of "$@"); do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Missing packages: ${missing[*]}"
  local apt=(apt-get -o DPkg::Lock::Timeout=300)
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Install them as root: apt-get install ${missing[*]}"; return 1; }
    apt=(sudo "${apt[@]}")
    if [ "$ask" = yes ]; then
      local answer
      read -r -p "Install them with apt-get? [y/N] " answer
      case "$answer" in [yY]*) ;; *) echo "Nothing was installed."; return 1 ;; esac
    fi
  fi
  echo "Installing them; this may take some minutes."
  export DEBIAN_FRONTEND=noninteractive
  "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >/dev/null 2>&1 ||
    { "${apt[@]}" update && "${apt[@]}" install -y --no-install-recommends "${missing[@]}"; }
}
