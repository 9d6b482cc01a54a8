# Start-up of the program beside others: sourced by a comparison script that defines startrow, with
# VISTARA set to the release build's executable and FOLDER to a folder of about a hundred files. The
# program's data goes to a folder of its own whose settings name that folder.
vistaraHome() {
    local home
    home=$(mktemp -d)
    cp -r "$(dirname "$VISTARA")"/Images "$home"/
    sed "s#^SpeciFolder=.*#SpeciFolder=$FOLDER#" "$(dirname "$VISTARA")"/config.ini >"$home"/config.ini
    echo "$home"
}

extra_start_warm() { startrow vistara_folder warm "env VISTARA_HOME=$(vistaraHome) $VISTARA"; }
extra_start_cold() { startrow vistara_folder cold "env VISTARA_HOME=$(vistaraHome) $VISTARA"; }
