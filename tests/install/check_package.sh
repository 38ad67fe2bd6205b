#!/usr/bin/env bash
# Builds the Debian package with CPack into a temporary folder and reads its control file:
# name, version, architecture, and dependencies on the packages of the libraries and plugins
# the program uses; no maintainer script that could touch the users' data on removal.
# Usage: check_package.sh BUILD_DIR VERSION
set -euo pipefail
build=$1
version=$2
work=$(mktemp -d /tmp/quillorne-package.XXXXXX)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

cpack --config "$build/CPackConfig.cmake" -B "$work" >"$work/cpack.log" \
  || { cat "$work/cpack.log"; fail "cpack"; }
deb="$work/quillorne_${version}_amd64.deb"
[ -f "$deb" ] || { ls "$work"; fail "no quillorne_${version}_amd64.deb"; }

info=$(dpkg-deb -I "$deb")
echo "$info"
for field in "Package: quillorne" "Version: $version" "Architecture: amd64"; do
  grep -qx " $field" <<<"$info" || fail "control file lacks '$field'"
done
depends=$(dpkg-deb -f "$deb" Depends)
wanted=(libqt6core6 libqt6gui6 libqt6widgets6 libqt6sql6 libqt6sql6-sqlite libqt6sql6-psql
        libsodium23)
if ldd "$build/src/app/quillorne" | grep -q quazip; then wanted+=("libquazip1-qt6[^ ,]*"); fi
for pkg in "${wanted[@]}"; do
  grep -Eq "(^|, )$pkg( |,|$)" <<<"$depends" || fail "Depends lacks $pkg: $depends"
done
# The backups of a PostgreSQL database need its client tools.
recommends=$(dpkg-deb -f "$deb" Recommends)
grep -Eq "(^|, )postgresql-client( |,|$)" <<<"$recommends" ||
  fail "Recommends lacks postgresql-client: $recommends"
for script in preinst postinst prerm postrm; do
  if grep -Eq "^ +[0-9]+ bytes, +[0-9]+ lines +\*? *$script" <<<"$info"; then
    fail "the package has a $script script"
  fi
done

contents=$(dpkg-deb -c "$deb")
for f in ./usr/bin/quillorne ./usr/bin/quillorne-admin ./usr/share/applications/quillorne.desktop \
         ./usr/share/quillorne/templates/pettycash.xltx ./usr/share/quillorne/templates/sickness.xltx \
         ./usr/share/icons/hicolor/256x256/apps/quillorne.png; do
  grep -q " $f\$" <<<"$contents" || fail "the package lacks $f"
done
echo "package $(basename "$deb"): all checks passed"
