# Shared by ./run and ./test: installs what is missing, then configures and builds. To be sourced by bash.
# Everything it has to say goes to standard error, so that the output of the program that is run stays clean.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { echo "$*" >&2; }

# packages_for USE...: the packages that cmake/packages.txt lists for these uses.
packages_for()
{
  local package use _
  while read -r package use _; do
    [[ $package != \#* && " $* " == *" $use "* ]] && echo "$package"
  done <"$root/cmake/packages.txt"
  return 0
}

# missing PACKAGE...: those of them that dpkg doesn't know as installed.
missing()
{
  comm -23 <(printf '%s\n' "$@" | sort) \
    <(dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p' | sort)
}

# logged WHAT COMMAND...: runs a command silently; if it fails, shows what it printed.
logged()
{
  local what=$1 log
  shift
  log=$(mktemp)
  if ! "$@" >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    say "$what failed."
    return 1
  fi
  rm -f "$log"
}

# install_for USE...: installs what these uses need and the machine lacks.
install_for()
{
  local wanted lacking as_root=()
  mapfile -t wanted < <(packages_for "$@")
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    say "Not a Debian system; the build expects the counterparts of: ${wanted[*]}"
    return 0
  fi
  mapfile -t lacking < <(missing "${wanted[@]}")
  ((${#lacking[@]})) || return 0

  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      say "These packages are missing and need root to install: ${lacking[*]}"
      return 1
    fi
    as_root=(sudo)
  fi
  say "Installing: ${lacking[*]}"
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=600)
  logged "Refreshing the package lists" "${apt[@]}" update || return 1
  logged "Installing packages" "${apt[@]}" install -y --no-install-recommends "${lacking[@]}"
}

# configure PRESET [CMAKE ARGUMENTS...]
configure()
{
  (cd "$root" && logged "Configuring" cmake --preset "$@")
}

# build FOLDER [TARGETS...]: on a terminal one line shows how far the build is; elsewhere only failures show.
# The lock keeps a second ./run or ./test in another terminal from building in the same folder at the same time.
build()
{
  local folder=$root/$1
  shift
  local ninja=(flock "$folder" ninja -C "$folder" -j "$(nproc)")
  if [[ -t 2 ]]; then
    "${ninja[@]}" "$@" >&2
  else
    "${ninja[@]}" --quiet "$@" | sed '/^ninja: no work to do\.$/d' >&2
  fi
}
