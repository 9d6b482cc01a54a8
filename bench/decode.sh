#!/bin/bash
# Adds Vistara's readers to a comparison of picture decoders. A script that compares them sources
# this file and calls extra_decode; it provides
#   C      folder that holds the pictures under big/     T     folder for temporary files
#   REPS   measured repetitions                          row   prints one row of its table
# and DECODE_BENCH names the program decode_bench of a release build.
# The rows of a picture are those of decode_bench.

# A TIFF that the reader accepts, from the pixels of a 6000 x 4000 TGA file.
make_tiff() { # TGA TIFF
    {
        printf 'II*\0\10\0\0\0\7\0'
        printf '\0\1\3\0\1\0\0\0\160\27\0\0'  # width 6000
        printf '\1\1\3\0\1\0\0\0\240\17\0\0'  # height 4000
        printf '\2\1\3\0\3\0\0\0\10\0\0\0'    # bits per sample
        printf '\3\1\3\0\1\0\0\0\1\0\0\0'     # compression
        printf '\6\1\3\0\1\0\0\0\2\0\0\0'     # photometric interpretation
        printf '\21\1\3\0\1\0\0\0\142\0\0\0'  # strip offset
        printf '\34\1\3\0\1\0\0\0\1\0\0\0'    # planar configuration
        printf '\0\0\0\0'
        tail -c +19 "$1"
        head -c 6000 "$1"
    } > "$2"
}

extra_decode() {
    local name what middle least most
    make_tiff "$C/big/photo_24.tga" "$T/photo_24.tif"
    taskset -c 0 "${DECODE_BENCH:?}" "$REPS" "$C"/big/*.{pcx,tga,psd} "$T/photo_24.tif" > "$T/rows"
    while read -r name what middle least most; do
        row decode "${name/./_}_vistara_$what" "$middle" "$least" "$most" ms "decode_bench $name"
    done < "$T/rows"
}
