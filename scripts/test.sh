#!/usr/bin/env bash
# Builds with address and undefined-behaviour sanitizers, runs all tests and checks the formatting.
# Installs what is missing. Real files are tested too when QUILLMARK_CORPUS names their folder.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/packages.sh
. scripts/packages.sh

need "${build_packages[@]}" libgtest-dev clang-format desktop-file-utils appstream mandoc

export QUILLMARK_CORPUS=${QUILLMARK_CORPUS:-}

echo '== build'
cmake --preset asan --log-level=WARNING
cmake --build --preset asan -j "$(nproc)"

echo '== tests'
ctest --preset asan -j "$(nproc)"

echo '== formatting'
scripts/format.sh --check
echo 'Done.'
