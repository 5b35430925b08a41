#!/usr/bin/env bash
# Formats all sources; with --check it changes nothing and fails on a file that isn't formatted.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/packages.sh
. scripts/packages.sh

need clang-format
mode=(-i)
if [ "${1:-}" = --check ]; then
    mode=(--dry-run -Werror)
    # Other versions break lines differently.
    if ! clang-format --version | grep -q 'version 14\.'; then
        echo "Not checked: $(clang-format --version), the sources are formatted with version 14."
        exit 0
    fi
fi
find src tests fuzz bench \( -name '*.h' -o -name '*.cpp' \) -print0 |
    xargs -0 -r clang-format "${mode[@]}"
