# Rows for a comparison script that calls extra_thumbs() and offers rate SECTION NAME COUNT COMMAND.
# THUMBS_BENCH is the benchmark program, THUMBS_FOLDER a folder of JPEG pictures; VISTARA_HOME the
# folder with the delivered Images, so that badges are loaded as in the program.
extra_thumbs() {
    local count size
    count=$(find "$THUMBS_FOLDER" -maxdepth 1 -name '*.jpg' | wc -l)
    for size in 60 160 200; do
        rate thumbs "vistara_${size}_1core" "$count" "taskset -c 0 $THUMBS_BENCH run $THUMBS_FOLDER $size"
    done
}
