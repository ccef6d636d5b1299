# Part of packaging/windows/try: what a Windows PC asks of a program beside its main job.

# shellcheck shell=bash
userData=$WINEPREFIX/drive_c/users/$(id -un)/AppData/Local/TAMBRIX

# locked on|off FOLDER: nothing can be written below it. Rights do not bind root, this mark does.
locked() {
    local right=+w mark=-i
    [[ $1 == off ]] || right=-w mark=+i
    if [[ $(id -u) -eq 0 ]]; then
        chattr -R "$mark" "$2"
    else
        chmod -R "a$right" "$2"
    fi
}

tryReadOnlyFolder() {
    local program=$folder/locked/tambrix
    rm -rf "$folder/locked" "$userData"
    mkdir "$folder/locked"
    cp -r "$folder/Drücker Süd/tambrix" "$program"
    sed -E '/"W690"/s/"value": [0-9]+/"value": 451/' "größe 3.json" >other.json
    cli convert other.json other.sdt
    locked on "$folder/locked"
    check "downloads from a folder that cannot be written" cli download other.sdt --simulate
    locked off "$folder/locked"
    check "its backup is in the user's folder" test -n "$(find "$userData/Backups" -name '*.sdt')"
}

# A path of more than 260 characters, which Windows takes only from programs that ask for it.
tryLongPaths() {
    local long program
    long="$folder/$(printf 'Ein sehr langer Ordner für Drücker %.0s' {1..5})/$(printf 'ü%.0s' {1..100})"
    program=$long/tambrix
    mkdir -p "$long"
    cp -r "$folder/Drücker Süd/tambrix" "$long"
    check "starts from a path of ${#program} characters" cli identify --simulate
    check "saves a file there" cli upload "Z:${long//\//\\}\\größe 4.sdt" --simulate
    check "the file is there" test -s "$long/größe 4.sdt"
    rm -rf "$long"
}

# says TEXT ARGUMENT...: the command line program says this on one of its two outputs.
says() {
    grep -qF -- "$1" <(cli "${@:2}" 2>&1)
}

tryPorts() {
    ln -sfn "$folder/press" "$WINEPREFIX/dosdevices/com12"
    check "opens COM12" says 'Cannot Communicate with Target Board' identify --serial-device COM12
    check "says that there is no COM77" says 'COM77 File not found.' identify --serial-device COM77
}

# holdsWide TEXT FILE: as Windows writes texts, in two bytes a letter
holdsWide() {
    LC_ALL=C grep -qaP "$(sed 's/./&\\0/g' <<<"$1")" "$2"
}

tryManners() {
    check "asks for each monitor's scale" grep -qaF PerMonitorV2 "$program/tambrix.exe"
    check "carries its version" holdsWide FileVersion "$program/tambrix.exe"
    check "its texts are UTF-8" says 'größe 9.sdt' compare "größe 9.sdt" "größe 3.sdt"
    tryReadOnlyFolder
    tryLongPaths
    tryPorts
}
