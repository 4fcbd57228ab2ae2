#!/usr/bin/env bash
# The packages in a bare Debian 12: installed, used and removed, with nothing of this machine but a display.
# Usage: packagetrial.sh DIR    DIR has the packages; root only. Keeps the bare system in DIR/bare for the next time
#                               and leaves DIR/window.png and DIR/notes.pdf to look at.
#
# The bare system is debootstrap's, and apt fills it from the mirror that this machine uses for Debian, or from the
# one that ORVANE_MIRROR names.
set -euo pipefail

RELEASE=bookworm
DESK=1000 # the plain user of the bare system
WAIT=60   # seconds for a display and for a window

die() { echo "package trial: $*" >&2; exit 1; }
say() { echo "   $*"; }

[ "$(id -u)" -eq 0 ] || die "only root can make a bare system"
target=$(realpath "${1:?a directory}")
# In namespaces of its own: the mounts and the processes go with this script, whatever happens.
[ -n "${ORVANE_TRIAL_INSIDE:-}" ] ||
    ORVANE_TRIAL_INSIDE=1 exec unshare --mount --mount-proc --pid --fork --kill-child "$0" "$target"

bare=$target/bare
root= # where `inside` is
log=$target/trial.log
: >"$log"

mirror()
{
    local found
    found=${ORVANE_MIRROR:-$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' \
        "Codename: $RELEASE" 'Origin: Debian' 'Component: main' | sed -n 1p)}
    echo "${found:-http://deb.debian.org/debian}"
}

inside() { chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root "$@"; }

# As the plain user, in the folder given first.
as_desk()
{
    local folder=$1
    shift
    chroot --userspec="$DESK:$DESK" "$root" /usr/bin/env -i --chdir="$folder" PATH=/usr/bin:/bin LC_ALL=C.UTF-8 \
        HOME=/home/desk DISPLAY="${DISPLAY:-}" "$@"
}

# Whether the text comes through; to its end, so that whoever writes it isn't cut off.
has() { grep "$1" >/dev/null; }

# A system that is thrown away needs no syncing.
apt()
{
    inside DEBIAN_FRONTEND=noninteractive apt-get --quiet --yes --no-install-recommends \
        -o Dpkg::Options::=--force-unsafe-io "$@" >>"$log" 2>&1 ||
        die "apt-get $* fails; see $log"
}

# The bare system, with all that the package depends on by the package's own word.
make_bare()
{
    if [ ! -d "$bare" ]; then
        say "making a bare Debian, once"
        rm -rf "$bare.new"
        debootstrap --variant=minbase "$RELEASE" "$bare.new" "$(mirror)" >>"$log" 2>&1 || die "see $log"
        mv "$bare.new" "$bare"
    fi
    root=$bare
    enter
    cp /etc/resolv.conf /etc/hosts "$root/etc/"
    apt update
    apt satisfy "$(dpkg-deb --field "$(echo "$target"/orvane_*.deb)" Depends)"
    apt clean
    leave
}

make_trial()
{
    root=$target/trial
    rm -rf "$root"
    cp --archive --reflink=auto "$bare" "$root"
    enter
    install -d -o "$DESK" -g "$DESK" "$root/home/desk"
}

enter()
{
    mount -t proc proc "$root/proc"
    mount --bind /dev "$root/dev"
}

leave() { umount "$root/proc" "$root/dev"; }

# What lies on the system's disk, but for the records of dpkg and apt.
files()
{
    (cd "$root" && find . -xdev \( -path ./home -o -path ./packages -o -path ./tmp -o -path ./var/lib/dpkg -o \
        -path ./var/lib/apt -o -path ./var/cache/apt -o -path ./var/log \) -prune -o -print | LC_ALL=C sort)
}

install_packages()
{
    say "apt installs the packages, and nothing else"
    local packages=("$target"/orvane_*.deb "$target"/orvane-doc_*.deb)
    mkdir "$root/packages"
    cp "${packages[@]}" "$root/packages/"
    inside sh -c 'dpkg-query -W -f "\${Package}\n"' >"$target/packages.before"
    apt install "${packages[@]/#"$target"//packages}"
    inside sh -c 'dpkg-query -W -f "\${Package}\n"' | LC_ALL=C comm -13 "$target/packages.before" - |
        diff - <(printf '%s\n' orvane orvane-doc) || die "other packages were installed than ours"
}

use_tools()
{
    say "orvane-data makes a data root and examines it"
    as_desk /home/desk orvane-data demo /home/desk/root >>"$log"
    as_desk /home/desk orvane-data check /home/desk/root >>"$log" || die "the data root has faults; see $log"
    say "orvane-informe prints a report from the installed definition"
    as_desk /home/desk orvane-informe render /usr/share/orvane/reports/conservacion.rpt --data /home/desk/root --company 00012 \
        --pdf /home/desk/notes.pdf >>"$log"
    cp "$root/home/desk/notes.pdf" "$target/"
    pdftotext "$target/notes.pdf" - | has '[[:alpha:]]' || die "the report has no text"
}

start_desk()
{
    local number
    coproc DESKTOP { exec Xvfb -displayfd 1 -screen 0 1280x800x24 -nolisten tcp -noreset -r 2>>"$log"; }
    read -r -t "$WAIT" number <&"${DESKTOP[0]}" || die "no display; see $log"
    export DISPLAY=:$number
    mkdir -p "$root/tmp/.X11-unix"
    mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
    openbox >>"$log" 2>&1 &
    timeout "$WAIT" sh -c 'until xprop -root _NET_SUPPORTING_WM_CHECK | grep "window id"; do sleep 0.1; done' >>"$log" ||
        die "no window manager; see $log"
}

use_program()
{
    say "a plain user starts orvane, sees its main window and closes it"
    local version program window
    version=$(dpkg-deb --field "$(echo "$target"/orvane_*.deb)" Version)
    as_desk /home/desk/root orvane 00012 ana >>"$log" 2>&1 &
    program=$!
    window=$(timeout "$WAIT" xdotool search --sync --onlyvisible --name "Build ${version%-*}\$" | sed -n 1p) ||
        true
    [ -n "$window" ] || die "no main window; see $log"
    xdotool windowactivate --sync "$window"
    import -window root "$target/window.png"
    xdotool key alt+F4
    wait "$program" || die "orvane ends with $?"
    as_desk /home/desk orvane-data check /home/desk/root >>"$log" || die "the data root has faults; see $log"
}

read_pages()
{
    say "the manual and the pages for man are there"
    local page
    for page in {,es/}man1/{orvane,orvane-data,orvane-informe}.1.gz; do
        zcat "$root/usr/share/man/$page" | mandoc -T utf8 | has '^ORVANE' || die "no page $page"
    done
    pdftotext "$root/usr/share/doc/orvane/manual.pdf" - | has 'Grabar' || die "no manual"
    has 'Grabar' <"$root/usr/share/doc/orvane/manual.html" || die "no manual"
}

purge()
{
    say "apt purges the packages; nothing is left of them"
    apt purge orvane orvane-doc
    files | diff "$target/files.before" - || die "files before (<) and after (>) differ"
}

make_bare
make_trial
files >"$target/files.before"
install_packages
use_tools
start_desk
use_program
read_pages
purge
umount "$root/tmp/.X11-unix"
leave
rm -rf "$root" "$target"/{files,packages}.before
