#!/usr/bin/env bash
# The manual for the people at the desk, from docs/manual.
# Usage: manual.sh build DIR        makes DIR/manual.html (one file, pictures inside) and DIR/manual.pdf
#        manual.sh check           says whether every picture that the chapters show is there
#        manual.sh pictures TOUR    takes the pictures that the manual shows from a tour's, made small
set -euo pipefail
manual=$(realpath "$(dirname "$0")/../docs/manual")

COLOURS=64 # the windows have fewer; letters keep their soft edges

shown_pictures() { cd "$manual" && grep -oh '](pictures/[^)]*)' ./*.md | sed 's/](pictures\///; s/)//' | sort -u; }

check()
{
    local name
    while read -r name; do
        [ -f "$manual/pictures/$name" ] || { echo "manual: docs/manual/pictures/$name is missing" >&2; exit 1; }
    done < <(shown_pictures)
}

build()
{
    local target=$1
    check
    cd "$manual"
    pandoc --from markdown --to html5 --standalone --self-contained --toc --toc-depth=2 --section-divs \
        --css manual.css --output "$target/manual.html" 00-manual.yaml ./[0-9]*.md
    weasyprint --quiet "$target/manual.html" "$target/manual.pdf"
}

pictures()
{
    local tour=$1 name
    mkdir -p "$manual/pictures"
    while read -r name; do
        [ -f "$tour/$name" ] || { echo "manual: the tour has no picture $name" >&2; exit 1; }
        convert "$tour/$name" -strip +dither -colors "$COLOURS" "png8:$manual/pictures/$name"
        optipng -quiet -o1 "$manual/pictures/$name"
    done < <(shown_pictures)
}

case "${1:-}" in
    build) mkdir -p "${2:?a directory}" && build "$(realpath "$2")" ;;
    check) check ;;
    pictures) pictures "$(realpath "${2:?a directory}")" ;;
    *) sed -n '3,5s/^# //p' "$0" >&2; exit 2 ;;
esac
