#!/usr/bin/env bash
# Measures opening, saving, generating and parsing on FILEs (default: the largest TYP file and the
# largest text of QUILLMARK_CORPUS, else the examples) and on the largest document there can be.
#   scripts/bench.sh [FILE...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/packages.sh
. scripts/packages.sh

need "${build_packages[@]}" libgtest-dev libbenchmark-dev
cmake --preset bench --log-level=WARNING
cmake --build --preset bench -j "$(nproc)" --target quillmark_bench

files=("$@")
corpus=${QUILLMARK_CORPUS:-}
if [ ${#files[@]} -eq 0 ] && [ -d "$corpus" ]; then
    for kind in bin txt; do
        files+=("$(find "$corpus/$kind" -type f -printf '%s\t%p\n' | sort -n | tail -n 1 | cut -f 2-)")
    done
fi
exec build/bench/bench/quillmark_bench --benchmark_color=false "${files[@]}"
