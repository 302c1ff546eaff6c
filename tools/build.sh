# shellcheck shell=bash
# Builds the presets quietly. To be sourced, with `top` set to the folder of the project.

# quietly COMMAND...: shows the command's output only when it fails
quietly() {
    local output status=0
    output=$("$@" 2>&1) || status=$?
    [ $status -eq 0 ] || echo "$output" >&2
    return $status
}

# configure PRESET
configure() {
    (cd "${top:?}" && quietly cmake --preset "$1")
}

# build PRESET [TARGET...]: configures where needed and builds; one at a time in each folder
build() {
    local folder=${top:?}/build/$1 preset=$1
    shift
    mkdir -p "$folder"
    (
        flock 9
        if [ ! -e "$folder/complete" ]; then
            echo "building build/$preset for the first time; this takes a minute" >&2
        fi
        [ -e "$folder/build.ninja" ] || configure "$preset" || exit 1
        quietly cmake --build "$folder" ${1:+--target "$@"} || exit 1
        touch "$folder/complete"
    ) 9>"$folder/lock"
}
