# Sourced by the other scripts.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

readonly build_packages=(cmake ninja-build g++ libyajl-dev libutfcpp-dev)
readonly test_packages=(libgtest-dev libgmock-dev locales nlohmann-json3-dev gdb)

# Installs what is missing of the Debian packages named; silent when all are there.
need_packages() {
    local missing=() package
    for package in "$@"; do
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            missing+=("$package")
    done
    ((${#missing[@]})) || return 0

    if ! command -v apt-get >/dev/null || { ((EUID != 0)) && ! command -v sudo >/dev/null; }; then
        echo "Please install these packages first, or what your system calls them:" >&2
        echo "    ${missing[*]}" >&2
        exit 1
    fi
    echo "Installing ${missing[*]}" >&2
    as_root apt-get update
    as_root apt-get install --yes --no-install-recommends "${missing[@]}"
}

# Runs a command as root, quietly.
as_root() {
    local root=()
    if ((EUID != 0)); then
        root=(sudo)
    fi
    quietly "${root[@]}" env DEBIAN_FRONTEND=noninteractive "$@"
}

# Runs a command, and shows what it printed only if it fails.
quietly() {
    local log
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        rm -f "$log"
        echo "Failed: $*" >&2
        exit 1
    fi
    rm -f "$log"
}

# Configures and builds a preset, quietly.
build_preset() {
    quietly cmake --preset "$1"
    quietly cmake --build --preset "$1"
}
