# Sourced by the scripts beside it: goes to the project's top, and installs what is missing.
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

# Installs those of the named Debian packages that are not there yet.
need() {
  local missing=() package
  for package in "$@"; do
    if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
      missing+=("$package")
    fi
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "installing ${missing[*]}" >&2
  as_root apt-get -q update >&2
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get -q -o DPkg::Lock::Timeout=600 install -y --no-install-recommends "${missing[@]}" >&2
}

# Configures and builds one of the presets of CMakePresets.json.
build() {
  cmake --preset "$1" && cmake --build --preset "$1"
}
