#!/usr/bin/env bash
# Says what each language file lacks, has too much or says in a form that doesn't fit.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/packages.sh
. scripts/packages.sh

need "${build_packages[@]}" libgtest-dev
cmake --preset dev --log-level=WARNING >/dev/null
cmake --build --preset dev --target check_languages >/dev/null
exec build/dev/tests/languages/check_languages src data/Langues
