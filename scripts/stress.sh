#!/usr/bin/env bash
# Cuts FILEs (default: all of QUILLMARK_CORPUS, else the examples) at every length and damages each
# 10,000 times, under sanitizers, as many at once as there are cores. Hours for a large corpus;
# STRESS_OPTIONS='--cuts 2000 --damages 1000' makes it shorter.
#   scripts/stress.sh [FILE...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/packages.sh
. scripts/packages.sh

need "${build_packages[@]}" libgtest-dev
cmake --preset asan --log-level=WARNING
cmake --build --preset asan -j "$(nproc)" --target quillmark_stress

files=("$@")
corpus=${QUILLMARK_CORPUS:-}
if [ ${#files[@]} -eq 0 ]; then
    if [ -d "$corpus" ]; then files=("$corpus"/bin/* "$corpus"/txt/*); else files=(data/examples/*.txt); fi
fi
# shellcheck disable=SC2086
if printf '%s\0' "${files[@]}" |
    xargs -0 -n 1 -P "$(nproc)" build/asan/tests/stress/quillmark_stress ${STRESS_OPTIONS:-}; then
    echo "No faults in ${#files[@]} files."
else
    echo 'There are faults, see above.' >&2
    exit 1
fi
