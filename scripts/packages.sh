# Sourced by the other scripts: installs what a step needs and the machine lacks.
# shellcheck shell=bash

# need PACKAGE... : Debian packages that must be there. Asks apt only when one is missing.
need() {
    local missing=() package
    command -v dpkg-query >/dev/null || echo "Needed here, by the names Debian gives: $*" >&2
    for package in "$@"; do
        is_there "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if ! command -v apt-get >/dev/null; then
        echo "These are needed (names as in Debian), please install them: ${missing[*]}" >&2
        return 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install, as root: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# A tool counts as there by its command, however it got onto the machine; a library by its package.
is_there() {
    case $1 in
        g++ | cmake | ccache | clang-format | clang-tidy) command -v "$1" >/dev/null ;;
        clang) command -v clang++ >/dev/null ;;
        ninja-build) command -v ninja >/dev/null ;;
        *) command -v dpkg-query >/dev/null || return 0
           dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q 'ok installed' ;;
    esac
}

# What every build needs.
# shellcheck disable=SC2034
build_packages=(g++ cmake ninja-build ccache libicu-dev zlib1g-dev qt6-base-dev qt6-svg-dev
    libgl1-mesa-dev fonts-dejavu-core qt6-translations-l10n)
