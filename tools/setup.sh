#!/usr/bin/env bash
# Installs what the build, the tests and the demo need on Debian 12, once. Sourced or run; quiet when nothing is missing.
# Usage: tools/setup.sh [build|test]
set -euo pipefail
packages=(g++ cmake ninja-build ccache pkg-config qt6-base-dev qt6-svg-dev libgl-dev libgdal-dev libsqlite3-dev
          libpugixml-dev libicu-dev python3 fonts-dejavu-core)
[ "${1:-build}" = test ] && packages+=(libgtest-dev clang-format clang-tidy binutils gdal-bin postgresql postgresql-postgis)

missing=()
for p in "${packages[@]}"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$p" 2>/dev/null)" = installed ] || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Missing packages: ${missing[*]}. Install them as root, or run with --no-install." >&2; exit 1; }
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
log=$(mktemp)
# The tests start database servers of their own: Debian's need not be made.
createcluster=/etc/postgresql-common/createcluster.conf
if [[ " ${missing[*]} " == *" postgresql "* ]] && [ ! -e $createcluster ]; then
    "${as_root[@]}" sh -c "mkdir -p ${createcluster%/*} && echo 'create_main_cluster = false' >$createcluster"
fi
if ! { "${as_root[@]}" apt-get update && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive UCF_FORCE_CONFFOLD=1 \
        apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -30 "$log" >&2
    echo "The packages could not be installed." >&2
    exit 1
fi
rm -f "$log"
