# Sourced by the scripts beside it: goes to the project's top, and installs what is missing.
# shellcheck shell=bash disable=SC2034  # the lists of packages are for those scripts
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# What the program is built from.
build_packages=(g++ cmake ninja-build pkg-config libtomlplusplus-dev libutf8proc-dev libuv1-dev
                rapidjson-dev)
# What the tests need besides.
test_packages=(cmark-gfm git jq libgtest-dev libpcre2-dev patch python3 python3-jsonschema)
# What the benchmarks need besides.
bench_packages=(libbenchmark-dev libpcre2-dev)

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Whether a package is there: of this machine's architecture, unless the name says of which.
is_installed() {
  local architecture=${1#*:}
  [ "$architecture" != "$1" ] || architecture=$(dpkg --print-architecture)
  dpkg-query -W -f='${Architecture} ${db:Status-Status}\n' "$1" 2>/dev/null |
    grep -qxE "($architecture|all) installed"
}

# Installs those of the named Debian packages that are not there yet.
need() {
  local missing=() package
  for package in "$@"; do
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "installing ${missing[*]}" >&2
  as_root apt-get -q update >&2
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get -q -o DPkg::Lock::Timeout=600 install -y --no-install-recommends "${missing[@]}" >&2
}

# Installs the compiler that is named first, and libraries of arm64.
need_arm64() {
  need "$1"
  shift
  if ! dpkg --print-foreign-architectures | grep -qx arm64; then
    as_root dpkg --add-architecture arm64
  fi
  need "${@/%/:arm64}"
}

# Configures and builds one of the presets of CMakePresets.json.
build() {
  cmake --preset "$1" && cmake --build --preset "$1"
}

# Builds one of the presets of the program, and packs it into DIRECTORY as a .deb and a .tar.gz, dated
# as the last commit: pack PRESET DIRECTORY
pack() {
  build "$1"
  SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
  export SOURCE_DATE_EPOCH
  rm -rf "$2"
  cpack --config "build/$1/CPackConfig.cmake" -B "$2"
}

# Lets PROGRAMS name a directory with this platform's program, as the packers of packaging/ take it:
# the one that is given, or else one with the program as it is built now.
find_programs() {
  if [ -z "${PROGRAMS:-}" ]; then
    need "${build_packages[@]}"
    build release
    PROGRAMS=$PWD/build/programs
    rm -rf "$PROGRAMS"
    install -D --strip build/release/registry-docs \
      "$PROGRAMS/linux-$(uname -m | sed 's/x86_64/x64/; s/aarch64/arm64/')/registry-docs"
  fi
  export PROGRAMS
}
