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
for _ in $(seq 1 100); do
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
    sleep 0.1
done
(cd "$root" && exec "$program" "$@") &
orvane=$!
trap 'kill "$orvane" "$manager" 2>/dev/null || true' EXIT

# Waits until a window with the title given is on the screen, brings it to the front and answers with its number.
window_titled()
{
    local wanted=$1 window _
    for _ in $(seq 1 150); do
        kill -0 "$orvane" 2>/dev/null || { echo "pictures: the program has ended" >&2; exit 1; }
        window=$(xdotool search --onlyvisible --name "$wanted" 2>/dev/null | tail -n 1)
        if [ -n "$window" ]; then
            xdotool windowactivate --sync "$window" 2>/dev/null || true
            printf '%s\n' "$window"
            return
        fi
        sleep 0.1
    done
    echo "pictures: no window \"$wanted\" within 15 s" >&2
    exit 1
}

picture()
{
    import -window "$1" "$pictures/$2.png"
    echo "$pictures/$2.png"
}

main_window=$(window_titled 'Orvane - Gestión S.A.T. para Quenda')
sleep 0.5
picture "$main_window" main-window

xdotool key --clearmodifiers alt+a
sleep 0.3
xdotool key f
client_window=$(window_titled 'Mantenimiento de Clientes S.A.T.')
sleep 0.5
xdotool type --delay 20 '1'
xdotool key Tab
sleep 0.7
picture "$client_window" client-identificacion
# From the name into the first page, where Ctrl+Tab turns the pages.
xdotool key Tab
for page in client-adicionales client-conceptos client-consultas; do
    xdotool key ctrl+Tab
    sleep 0.4
    picture "$client_window" "$page"
done
