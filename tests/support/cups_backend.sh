#!/bin/sh
# A printer for tests: puts each document into the folder of the queue's address, capture:/FOLDER,
# as JOB.pdf, with the job's options beside it.
if [ $# -eq 0 ]; then
    exit 0
fi
folder=${DEVICE_URI#capture:}
printf '%s\n' "$5" > "$folder/$1.options"
printf '%s\n' "$3" > "$folder/$1.title"
cat ${6:+"$6"} > "$folder/$1.part" && mv "$folder/$1.part" "$folder/$1.pdf"
