#!/usr/bin/env bash
# Runs clang-tidy over the sources of the product, or over the files named. Slow: minutes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/packages.sh
. scripts/packages.sh

need "${build_packages[@]}" libgtest-dev clang-tidy
# Without precompiled headers, which another compiler wrote.
cmake --preset dev --log-level=WARNING -B build/lint -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON
cmake --build build/lint --target quillmark_ui_autogen

if [ $# -gt 0 ]; then
    files=("$@")
else
    # Sources of other platforms aren't in the compile commands.
    mapfile -t files < <(find src -name '*.cpp' ! -name '*_win32.cpp' | sort)
fi
printf '%s\0' "${files[@]}" |
    xargs -0 -n 1 -P "$(nproc)" clang-tidy --quiet -p build/lint \
        --header-filter="^$PWD/(src|tests|fuzz|bench)/" --extra-arg=-Wno-unknown-warning-option
echo "No findings in ${#files[@]} files."
