#!/usr/bin/env bash
# Formats all sources; with --check it changes nothing and fails on a file that isn't formatted.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mode=(-i)
[ "${1:-}" != --check ] || mode=(--dry-run -Werror)
find src tests fuzz bench -name '*.h' -print0 -o -name '*.cpp' -print0 |
    xargs -0 -r clang-format "${mode[@]}"
