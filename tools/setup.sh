# For run, test and bench to source: brings in the Debian packages and builds.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/release

# missing_packages GROUP...: the first of each line of the groups of which none is installed.
missing_packages() {
    dpkg-query -W -f '${db:Status-Status} ${Package}\n' |
        awk -v groups=" $* " '
            FILENAME == "-" { if ($1 == "installed") { here[$2] = 1 } next }
            /^#/ || !index(groups, " " $1 " ") { next }
            { for (i = 2; i <= NF; i += 2) { if ($i in here) { next } } print $2 }
        ' - "$root/packaging/debian-packages" | LC_ALL=C sort -u
}

# removed_by PACKAGE...: what would have to go for them.
removed_by() {
    LC_ALL=C apt-get -s -q install --no-install-recommends "$@" 2>/dev/null |
        sed -n 's/^Remv \([^ ]*\).*/\1/p'
}

# apt_get WORD...: apt-get as root. While another one is at work it waits: apt's own waiting is for the
# lock of installations and not for those of the lists and the archives.
apt_get() {
    local as_root=() end=$((SECONDS + 900)) errors status told=
    if ((EUID != 0)); then
        as_root=(sudo)
    fi
    errors=$(mktemp)
    while true; do
        status=0
        "${as_root[@]}" env LC_ALL=C DEBIAN_FRONTEND=noninteractive \
            apt-get -qq -o DPkg::Lock::Timeout=900 "$@" >&2 2>"$errors" || status=$?
        if ((status == 0 || SECONDS >= end)) || ! grep -q 'Could not get lock' "$errors"; then
            break
        fi
        if [[ -z $told ]]; then
            echo "Waiting for another apt to finish" >&2
            told=yes
        fi
        sleep 1
    done
    cat "$errors" >&2
    rm -f "$errors"
    return "$status"
}

# without_removals PACKAGE...: those that take nothing away; of each other one it says so.
without_removals() {
    local package removed
    if (($# == 0)); then
        return
    fi
    if [[ -z $(removed_by "$@") ]]; then
        printf '%s\n' "$@"
        return
    fi
    for package in "$@"; do
        mapfile -t removed < <(removed_by "$package")
        if ((${#removed[@]} == 0)); then
            echo "$package"
        else
            echo "Not installed: $package, which would remove ${removed[*]}" >&2
        fi
    done
}

# need GROUP...: installs what is missing, and never removes anything for it. On another system it
# only tells where the list is.
need() {
    local missing
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian system: the packages needed are listed in packaging/debian-packages" >&2
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    # Once before the lists are fetched anew: what stays left out would have them fetched at every run.
    mapfile -t missing < <(without_removals "${missing[@]}")
    if ((${#missing[@]} == 0)); then
        return
    fi
    apt_get update
    mapfile -t missing < <(without_removals "${missing[@]}")
    if ((${#missing[@]} == 0)); then
        return
    fi
    echo "Installing ${missing[*]}" >&2
    apt_get install -y --no-remove --no-install-recommends "${missing[@]}"
}

# configure TESTS BENCH (ON or OFF each): the release build, which all three commands share.
configure() {
    (cd "$root" && cmake --preset release -DVELORAMA_TESTS="$1" -DVELORAMA_BENCH="$2") >&2
}

# compile TARGET...: everything that is configured if no target is named.
compile() {
    (cd "$root" && cmake --build --preset release ${1:+--target "$@"}) >&2
}
