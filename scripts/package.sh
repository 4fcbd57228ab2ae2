#!/usr/bin/env bash
# The Debian packages, from debian/.
# Usage: package.sh build DIR       makes the source package and the packages in DIR, without a network when it may
#                                   cut itself off from it (as root)
#        package.sh check DIR       goes through them with lintian and the validators
#        package.sh version         says whether the changelog has the version of the build
set -euo pipefail
cd "$(dirname "$0")/.."

name=orvane
version=$(sed -n 's/^project(orvane VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)

check_version()
{
    local logged
    logged=$(dpkg-parsechangelog --show-field Version)
    [ "${logged%-*}" = "$version" ] && return
    echo "package: CMakeLists.txt has $version, debian/changelog has $logged" >&2
    exit 1
}

# The tracked files of the tree as they are now, as the tree of a release: the same files give the same archive.
pack_sources()
{
    local archive=$1
    git ls-files -z -- . ':!debian' | sort -z |
        tar --create --xz --file "$archive" --no-recursion --null --files-from - --transform "s,^,$name-$version/," \
            --owner 0 --group 0 --numeric-owner --mode go=rX,u+rw,a-s \
            --mtime "@$(dpkg-parsechangelog --show-field Timestamp)"
}

build()
{
    local target=$1 tree=$1/$name-$version alone=()
    check_version
    mkdir -p "$target"
    rm -rf "$tree" "$target/${name}"*.{deb,dsc,changes,buildinfo,tar.xz}
    pack_sources "$target/${name}_$version.orig.tar.xz"
    tar --extract --file "$target/${name}_$version.orig.tar.xz" --directory "$target"
    git ls-files -z -- debian | tar --create --null --files-from - | tar --extract --directory "$tree"
    [ "$(id -u)" -ne 0 ] || alone=(unshare --net)
    (cd "$tree" && PATH=/usr/lib/ccache:$PATH "${alone[@]}" \
        dpkg-buildpackage --unsigned-source --unsigned-changes -j"$(nproc)") >"$target/build.log" 2>&1 ||
        { tail -n 40 "$target/build.log" >&2; echo "package: see $target/build.log" >&2; exit 1; }
    rm -rf "$tree"
}

# Whether the files of the package, on standard input as dpkg-deb lists them, are those of the installation; what
# Debian asks for in its folder of documents comes on top.
hold_contents()
{
    awk '/^-/ { print $6 }' | sed -e 's,^\./usr/,,' -e 's,^lib/[^/]*/orvane/,lib/orvane/,' -e 's,\(/man1/.*\)\.gz$,\1,' \
        -e '/^share\/doc\//d' | LC_ALL=C sort | diff <(LC_ALL=C sort tests/packaging/installed.txt) - ||
        { echo "package: the package has other files (>) than the installation (<)" >&2; exit 1; }
}

check()
{
    local target=$1 content=$1/content package page
    # Only root has to be told that lintian may run as root.
    lintian --allow-root --fail-on error,warning --tag-display-limit 0 "$target/${name}_$version"-*.changes
    dpkg-deb --contents "$(echo "$target/${name}"_*.deb)" | hold_contents
    rm -rf "$content"
    for package in "$target/$name"_*.deb "$target/$name"-doc_*.deb; do
        dpkg-deb --extract "$package" "$content"
    done
    desktop-file-validate "$content"/usr/share/applications/*.desktop
    appstreamcli validate --no-net "$content"/usr/share/metainfo/*.xml
    for page in "$content"/usr/share/man/{,*/}man1/*; do
        zcat "$page" | mandoc -T lint -W warning
    done
    rm -rf "$content"
}

case "${1:-}" in
    build) build "$(realpath --canonicalize-missing "${2:?a directory}")" ;;
    check) check "$(realpath "${2:?a directory}")" ;;
    version) check_version ;;
    *) sed -n '3,6s/^# //p' "$0" >&2; exit 2 ;;
esac
