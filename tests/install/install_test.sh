#!/usr/bin/env bash
# Installs the build into a scratch prefix and checks what a desktop expects to find there,
# then builds the Debian package, unpacks it into a scratch root and runs the tool it carries.
# usage: install_test.sh BUILD_DIR
set -euo pipefail
build=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

prefix=$scratch/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
app_id=org.cxfcompare.CxFCompare
expected=(
    bin/cxf-compare
    bin/cxf-delta
    share/applications/$app_id.desktop
    share/metainfo/$app_id.metainfo.xml
    share/mime/packages/$app_id.xml
    share/icons/hicolor/scalable/apps/$app_id.svg
    share/man/man1/cxf-compare.1
    share/man/man1/cxf-delta.1
    share/cxf-compare/xml/cxf-template.xml
)
for f in "${expected[@]}"; do
    [ -e "$prefix/$f" ] || fail "cmake --install did not put $f in place"
done
ls "$prefix"/share/cxf-compare/translations/*.qm >/dev/null 2>&1 ||
    fail "no translations under share/cxf-compare/translations"

desktop-file-validate "$prefix/share/applications/$app_id.desktop"
appstreamcli validate --no-net --pedantic "$prefix/share/metainfo/$app_id.metainfo.xml" >/dev/null ||
    appstreamcli validate --no-net "$prefix/share/metainfo/$app_id.metainfo.xml"
for page in cxf-compare cxf-delta; do
    man -l -Tutf8 "$prefix/share/man/man1/$page.1" 2>&1 >/dev/null | grep . && fail "man page $page warns"
done

# The MIME package: a *.cxf file and a CxF document under another name are both recognised.
mkdir -p "$scratch/mime"
cp -r "$prefix/share/mime" "$scratch/mime/"
XDG_DATA_DIRS="$scratch/mime" update-mime-database "$scratch/mime/mime" 2>&1 | grep . && fail "update-mime-database warns"
grep -q 'application/x-cxf+xml' "$scratch/mime/mime/globs2" || fail "*.cxf glob not registered"
grep -q 'CxF' "$scratch/mime/mime/XMLnamespaces" || fail "CxF root element not registered"

# The Debian package, with its dependencies from dpkg-shlibdeps.
(cd "$build" && cpack -G DEB -B "$scratch/deb" >/dev/null)
deb=$(ls "$scratch"/deb/*.deb)
depends=$(dpkg-deb -f "$deb" Depends)
for lib in libc6 libqt6widgets6 libqt6charts6 liblcms2-2 libexpat1; do
    [[ $depends == *"$lib"* ]] || fail "package depends on '$depends', without $lib"
done
dpkg-deb -x "$deb" "$scratch/root"
for f in "${expected[@]}"; do
    [ -e "$scratch/root/usr/$f" ] || fail "the package lacks /usr/$f"
done
"$scratch/root/usr/bin/cxf-delta" --help | grep -q 'cxf-delta' || fail "packaged cxf-delta does not run"
sample=$(dirname "$0")/../../data/samples/sample-a.cxf
"$scratch/root/usr/bin/cxf-delta" "$sample" "$sample" >/dev/null || fail "packaged cxf-delta cannot compare"
echo "install tree, validators and package: ok"
