#!/usr/bin/env bash
# Builds the editor and opens FILE in it, or an example of the project.
#   scripts/run.sh [FILE]
# Without a display it converts the file there and back instead, a TYP file to text and to TYP
# again, a text to TYP and to text again, paints its icons, and says what came of it.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=scripts/packages.sh
. "$root/scripts/packages.sh"

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

[ $# -le 1 ] || fail "Name one file at most: scripts/run.sh [FILE]"
example=$root/data/examples/randonnee.txt
input=${1:-$example}
[ -e "$input" ] || fail "There is no file \"$input\"."
if [ ! -f "$input" ] || [ ! -r "$input" ]; then
    fail "\"$input\" is not a file that can be read."
fi

display=${DISPLAY:-}${WAYLAND_DISPLAY:-}
need "${build_packages[@]}"
[ -z "${WAYLAND_DISPLAY:-}" ] || need qt6-wayland
targets=(quillmark-batch)
[ -z "$display" ] || targets=(quillmark quillmark_examples)
build=$root/build/run
echo 'Building ...'
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
           -DQUILLMARK_BUILD_TESTS=OFF -DQUILLMARK_BUILD_BENCH=OFF &&
       cmake --build "$build" -j "$(nproc)" --target "${targets[@]}"; } >"$log" 2>&1; then
    cat "$log" >&2
    fail 'The build failed.'
fi
if [ -n "$display" ]; then
    # Devices read the compiled form.
    [ "$input" != "$example" ] || input=$build/data/examples/randonnee.typ
    rm -f "$log"
    exec "$build/src/quillmark" -- "$input"
fi
batch=$build/src/quillmark-batch

# The value that `info` prints behind a label; a path within its output can't be mistaken for one.
value() {
    sed -n "s/^  $2: //p" <<<"$1"
}

name=$(basename -- "$input")
out=$root/build/out
mkdir -p "$out"
case ${name,,} in
    *.txt) there=$out/${name%.*}.typ; back=$out/${name%.*}.back.txt
           make_there=typ; make_back=text; kind='text' ;;
    *)     there=$out/${name%.*}.txt; back=$out/${name%.*}.back.typ
           make_there=text; make_back=typ; kind='TYP file' ;;
esac

# Status 2 stands for errors in the file or for a refusal; what could be had is written then, so
# the outputs tell whether the step was done.
convert() {
    local command=$1 from=$2 to=$3
    shift 3
    rm -f -- "$to"
    "$batch" "$command" "$@" -- "$from" "$to" >"$log" 2>&1 || true
    if [ ! -s "$to" ]; then
        cat "$log" >&2
        fail "\"$from\" could not be converted to \"$to\"."
    fi
}

before=$("$batch" info -- "$input" 2>/dev/null) || true
[ -n "$before" ] || fail "\"$input\" could not be read."
faults=$("$batch" check -- "$input") || true

id=()
back_id=()
if [ "$make_there" = typ ]; then
    # A text may leave open which map it is for; a TYP file has to say so.
    [ "$(value "$before" FID)" != none ] || id+=(--fid 1)
    [ "$(value "$before" 'product code')" != none ] || id+=(--product 1)
else
    [ "$(value "$before" FID)" != none ] || back_id+=(--fid 1)
fi
convert "$make_there" "$input" "$there" "${id[@]}"
convert "$make_back" "$there" "$back" "${back_id[@]}"
after=$("$batch" info -- "$back" 2>/dev/null) || true

count() {
    local counted
    counted=$(value "$1" "$2")
    echo "${counted%% *}"
}
echo
echo "Read   $input"
echo "       a $kind of $(value "$before" 'size in bytes') bytes, FID $(value "$before" FID)," \
     "code page $(value "$before" 'code page')"
echo "       $(count "$before" polygons) polygons, $(count "$before" lines) lines," \
     "$(count "$before" points) points, $(count "$before" 'draw order entries') draw order entries"
if [ -n "$faults" ]; then
    printf '       with %s remarks in its journal, the first:\n       %s\n' \
        "$(wc -l <<<"$faults" | tr -d ' ')" "$(head -n 1 <<<"$faults" | cut -c 1-200)"
fi
if [ "$kind" = text ]; then
    echo "Wrote  $there (the compiled TYP file)"
    echo "Wrote  $back (that file as text again)"
else
    echo "Wrote  $there (its text form)"
    echo "Wrote  $back (that text compiled again)"
fi

# Where no window can show them, pictures do: all objects of each kind that there is.
for shown in 'polygon:polygons' 'polyline:lines' 'poi:points' 'extrapoi:extra POI members'; do
    [ "$(count "$before" "${shown#*:}")" != 0 ] || continue
    sheet=$out/${name%.*}.${shown%%:*}.png
    rm -f -- "$sheet"
    "$batch" icons --kind "${shown%%:*}" --labels both -- "$input" "$sheet" >"$log" 2>&1 || true
    [ -s "$sheet" ] || { cat "$log" >&2; fail "\"$sheet\" could not be painted."; }
    echo "Wrote  $sheet (its icons)"
done

same=()
different=()
for label in polygons lines points 'draw order entries' 'extra POI groups'; do
    [ "$(count "$before" "$label")" != 0 ] || continue
    if [ "$(value "$before" "$label")" = "$(value "$after" "$label")" ]; then
        same+=("$label")
    else
        different+=("$label ($(count "$after" "$label"))")
    fi
done
listed() {
    local text
    text=$(printf '%s, ' "$@")
    echo "${text%, }"
}
if [ ${#different[@]} -eq 0 ]; then
    echo 'The way back gave the same records, byte for byte.'
else
    echo "The way back did not give all records byte for byte: some bytes have no place in text."
    [ ${#same[@]} -eq 0 ] || echo "The same: $(listed "${same[@]}")."
    echo "Not all the same: $(listed "${different[@]}")."
fi
