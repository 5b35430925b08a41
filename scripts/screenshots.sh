#!/usr/bin/env bash
# Writes pictures of the main window and every dialogue as PNG: light and dark, at scale 1 and 2, in
# French and English (or the languages that QUILLMARK_LANGUAGES names).
#   scripts/screenshots.sh OUTDIR [FILE]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=scripts/packages.sh
. "$root/scripts/packages.sh"

[ $# -ge 1 ] && [ $# -le 2 ] || { echo 'scripts/screenshots.sh OUTDIR [FILE]' >&2; exit 2; }
mkdir -p "$1"
out=$(cd "$1" && pwd)
file=${2:-$root/data/examples/randonnee.txt}
file=$(cd "$(dirname "$file")" && pwd)/$(basename "$file")

need "${build_packages[@]}" libgtest-dev
cmake --preset dev -S "$root" --log-level=WARNING >/dev/null
cmake --build "$root/build/dev" -j "$(nproc)" --target quillmark-screenshots >/dev/null

for language in ${QUILLMARK_LANGUAGES:-Francais English}; do
    for theme in light dark; do
        for scale in 1 2; do
            QT_SCALE_FACTOR=$scale "$root/build/dev/tests/screenshots/quillmark-screenshots" \
                "$out" "$file" "$language" "$theme"
        done
    done
done
echo "Pictures are in $out."
