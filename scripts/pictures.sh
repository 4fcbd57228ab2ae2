#!/usr/bin/env bash
# Starts the program on a data root inside the present X display, opens its windows with the keys a user would
# press, and leaves a picture of each in a folder.
# Usage: pictures.sh PROGRAM DATA_ROOT PICTURES_DIR [ARGUMENTS OF THE PROGRAM]
set -euo pipefail

program=$1 root=$2 pictures=$3
shift 3
mkdir -p "$pictures"

openbox >/dev/null 2>&1 &
manager=$!
(cd "$root" && exec "$program" "$@") &
orvane=$!
trap 'kill "$orvane" "$manager" 2>/dev/null || true' EXIT

# Waits until the program's active window carries the title given, and answers with its number.
active_window()
{
    local wanted=$1 window title _
    for _ in $(seq 1 150); do
        kill -0 "$orvane" 2>/dev/null || { echo "pictures: the program has ended" >&2; exit 1; }
        if window=$(xdotool getactivewindow 2>/dev/null); then
            title=$(xdotool getwindowname "$window" 2>/dev/null || true)
            case "$title" in *"$wanted"*) printf '%s\n' "$window"; return ;; esac
        fi
        sleep 0.1
    done
    echo "pictures: no active window \"$wanted\" within 15 s" >&2
    exit 1
}

picture()
{
    import -window "$1" "$pictures/$2.png"
    echo "$pictures/$2.png"
}

main_window=$(active_window 'Orvane - Gestión S.A.T. para Quenda')
sleep 0.5
picture "$main_window" main-window

xdotool key --clearmodifiers alt+f
client_window=$(active_window 'Mantenimiento de Clientes S.A.T.')
sleep 0.5
xdotool type --delay 20 '1'
xdotool key Tab
sleep 0.7
picture "$client_window" client-identificacion
for page in client-adicionales client-conceptos client-consultas; do
    xdotool key ctrl+Tab
    sleep 0.4
    picture "$client_window" "$page"
done
