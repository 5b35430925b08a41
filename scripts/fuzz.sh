#!/usr/bin/env bash
# Runs each fuzz target for SECONDS (default 60), at most as many at once as there are cores.
#   scripts/fuzz.sh [SECONDS] [TARGET...]
# Seeds come from the examples; what the fuzzer adds is kept in build/fuzz/corpus. A finding lies in
# build/fuzz/findings: make a test of it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/packages.sh
. scripts/packages.sh

seconds=${1:-60}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(reader parser round_trip)

need "${build_packages[@]}" clang
# The fuzzer's runtime is a package of its own, named after the compiler's version.
need "libclang-rt-$(clang++ -dumpversion | cut -d. -f1)-dev"
cmake --preset fuzz --log-level=WARNING
cmake --build --preset fuzz -j "$(nproc)"

fuzz=build/fuzz
mkdir -p "$fuzz"/seeds/{text,typ} "$fuzz/findings"
# One object a seed: small inputs find more.
for text in data/examples/*.txt; do
    awk -v prefix="$fuzz/seeds/text/$(basename "$text" .txt)-" '
        tolower($0) ~ /^\[_(polygon|line|point|draworder)\]/ {
            out = sprintf("%s%04d.txt", prefix, ++count)
            printf "[_id]\r\nProductCode=1\r\nFID=1\r\nCodePage=1252\r\n[end]\r\n" > out
        }
        out { print > out }
        tolower($0) ~ /^\[end\]/ && out { close(out); out = "" }' "$text"
    cp "$text" "$fuzz/seeds/text/"
done
for text in "$fuzz"/seeds/text/*.txt; do
    "$fuzz/src/quillmark-batch" typ "$text" "$fuzz/seeds/typ/$(basename "$text" .txt).typ" || true
done

run_target() {
    local target=$1 seeds=typ status=0
    [ "$target" != parser ] || seeds=text
    mkdir -p "$fuzz/corpus/$target"
    echo "== $target, $seconds s"
    "$fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=1024 \
        -max_len=16384 -print_final_stats=1 -artifact_prefix="$fuzz/findings/$target-" \
        "$fuzz/corpus/$target" "$fuzz/seeds/$seeds" >"$fuzz/$target.log" 2>&1 || status=$?
    grep -E 'number_of_executed_units|new_units_added|peak_rss|SUMMARY|ERROR' "$fuzz/$target.log" |
        sed "s/^/$target: /" || true
    return "$status"
}
export fuzz seconds
export -f run_target
# shellcheck disable=SC2016
if printf '%s\0' "${targets[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -c 'run_target "$1"' _; then
    echo 'No findings.'
else
    echo "Findings in $fuzz/findings, logs in $fuzz/*.log" >&2
    exit 1
fi
