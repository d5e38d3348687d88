# For run, test and bench to source: brings in the Debian packages and builds.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/release

# missing_packages GROUP...: those of the groups that are not installed.
missing_packages() {
    local groups=" $* "
    LC_ALL=C comm -23 \
        <(awk -v groups="$groups" '!/^#/ && index(groups, " " $1 " ") { print $2 }' \
            "$root/packaging/debian-packages" | LC_ALL=C sort -u) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' |
            sed -n 's/^installed //p' | LC_ALL=C sort -u)
}

# need GROUP...: installs what is missing. On another system it only tells where the list is.
need() {
    local missing as_root=()
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian system: the packages needed are listed in packaging/debian-packages" >&2
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        return
    fi
    if ((EUID != 0)); then
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# configure TESTS BENCH (ON or OFF each): the release build, which all three commands share.
configure() {
    (cd "$root" && cmake --preset release -DVELORAMA_TESTS="$1" -DVELORAMA_BENCH="$2") >&2
}

# compile TARGET...: everything that is configured if no target is named.
compile() {
    (cd "$root" && cmake --build --preset release ${1:+--target "$@"}) >&2
}
