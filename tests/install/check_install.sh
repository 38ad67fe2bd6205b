#!/usr/bin/env bash
# Installs the build into a temporary root with DESTDIR, as a package would, and checks what a
# user gets: the files, the desktop entry and metainfo as the desktop's own tools read them,
# the installed programs' --version and --help, and quillorne-admin making a database from
# the installed tree with the templates found under the install prefix.
# Usage: check_install.sh BUILD_DIR VERSION
set -euo pipefail
build=$1
version=$2
work=$(mktemp -d /tmp/quillorne-install.XXXXXX)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

DESTDIR="$work/root" cmake --install "$build" --prefix /usr >"$work/install.log"
p="$work/root/usr"
for f in bin/quillorne bin/quillorne-admin \
         share/applications/quillorne.desktop \
         share/icons/hicolor/scalable/apps/quillorne.svg \
         share/icons/hicolor/48x48/apps/quillorne.png \
         share/icons/hicolor/256x256/apps/quillorne.png \
         share/metainfo/org.quillorne.Quillorne.metainfo.xml \
         share/quillorne/templates/pettycash.xltx share/quillorne/templates/sickness.xltx; do
  [ -f "$p/$f" ] || fail "not installed: $f"
done
[ -x "$p/bin/quillorne" ] && [ -x "$p/bin/quillorne-admin" ] || fail "programs not executable"

# A PNG's width and height are the big-endian words at bytes 16 and 20.
for size in 48 256; do
  dims=$(od -An -tu1 -j16 -N8 "$p/share/icons/hicolor/${size}x${size}/apps/quillorne.png" |
         awk '{print $3*256+$4 "x" $7*256+$8}')
  [ "$dims" = "${size}x${size}" ] || fail "the ${size} px icon is $dims"
done

desktop-file-validate "$p/share/applications/quillorne.desktop" || fail "desktop entry"
grep -qx 'Categories=Office;' "$p/share/applications/quillorne.desktop" || fail "not in Office"
grep -qx 'Icon=quillorne' "$p/share/applications/quillorne.desktop" || fail "icon name"
appstreamcli validate --no-net "$p/share/metainfo/org.quillorne.Quillorne.metainfo.xml" \
  || fail "metainfo"
grep -q "<release version=\"$version\"" "$p/share/metainfo/org.quillorne.Quillorne.metainfo.xml" \
  || fail "metainfo release is not $version"

export QT_QPA_PLATFORM=offscreen
[ "$("$p/bin/quillorne" --version)" = "Quillorne $version" ] || fail "quillorne --version"
[ "$("$p/bin/quillorne-admin" --version)" = "quillorne-admin $version" ] \
  || fail "quillorne-admin --version"
"$p/bin/quillorne" --help | grep -q -- '--settings <file>' || fail "quillorne --help"
"$p/bin/quillorne-admin" --help | grep -q 'quillorne-admin create' || fail "quillorne-admin --help"

# Run from a folder that is neither the build nor the source tree.
cd "$work"
HOME="$work/home" "$p/bin/quillorne-admin" create --settings "$work/q.ini" --data "$work/data" \
  >"$work/create.log" || { cat "$work/create.log"; fail "quillorne-admin create"; }
grep -qx "Report templates: $p/share/quillorne/templates" "$work/create.log" \
  || { cat "$work/create.log"; fail "templates not found under the prefix"; }
[ -s "$work/data/personnel.db" ] || fail "no database made"
echo "installed tree under $p: all checks passed"
