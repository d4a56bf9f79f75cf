#!/usr/bin/env bash
# Makes a small tree of photos, music and papers with duplicates. Contents and dates are the same each
# time.
set -euo pipefail

if (($# != 1)); then
    printf 'Usage: %s FOLDER\n' "${0##*/}" >&2
    exit 2
fi
mkdir -p -- "$1"
cd -- "$1"

# Makes a file of the given size that repeats the text.
makeFile() {
    local path=$1 size=$2 text=$3
    mkdir -p -- "$(dirname -- "$path")"
    # head ends first, and yes with SIGPIPE.
    { yes "$text" || true; } 2>/dev/null | head -c "$size" >"$path"
}

copyFile() {
    mkdir -p -- "$(dirname -- "$2")"
    cp -- "$1" "$2"
}

makeFile 'Photos/2025 Summer/beach.jpg' 48000 'waves and sand'
makeFile 'Photos/2025 Summer/harbour.jpg' 52000 'boats at noon'
makeFile 'Photos/2025 Summer/lighthouse.png' 61000 'red and white'
copyFile 'Photos/2025 Summer/beach.jpg' 'Photos/Best of/beach.jpg'
copyFile 'Photos/2025 Summer/beach.jpg' 'Photos/Best of/beach (1).JPG'
copyFile 'Photos/2025 Summer/lighthouse.png' 'Desktop/lighthouse copy.png'
# Has the size of another file and other bytes.
makeFile 'Photos/Best of/market.jpg' 52000 'fruit at noon'

makeFile 'Music/Album/01 Morning.mp3' 96000 'a slow beginning'
makeFile 'Music/Album/02 Evening.mp3' 99000 'a quiet end'
copyFile 'Music/Album/01 Morning.mp3' 'Music/Mixtape/01 Morning.mp3'
copyFile 'Music/Album/01 Morning.mp3' 'Desktop/Morning.wav'

makeFile 'Papers/letter.pdf' 12000 'Dear friend,'
makeFile 'Papers/recipe.pdf' 9000 'flour, water, salt'
copyFile 'Papers/letter.pdf' 'Papers/Old/letter.pdf'
: >'Papers/empty.txt'
: >'Papers/Old/empty.txt'

# Without an extension: skipped by scans.
copyFile 'Papers/letter.pdf' 'Papers/README'

find . -exec touch -h -d '2026-01-31T12:00:00Z' {} +
