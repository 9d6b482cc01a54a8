# Adds Vistara's GIF encoder to a comparison of encoders. A script that compares them sources this
# file and calls extra_gif; it provides
#   C      folder that holds photo.idx and flat.idx under gifsrc/    T     folder for temporary files
#   REPS   measured repetitions                                      rep   prints one row from $T/v
# and GIF_BENCH names the program gif_bench of a release build.
extra_gif() {
    local kind
    for kind in photo flat; do
        for _ in $(seq "$REPS"); do
            taskset -c 0 "$GIF_BENCH" 5 2000 2000 "$C/gifsrc/$kind.idx" | awk '{print $2}'
        done > "$T/v"
        rep "${kind}_vistara" "gif_bench 5 2000 2000 $kind.idx"
    done
}
