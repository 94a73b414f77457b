# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Tries the README and the package on a Debian where nothing is installed.
#
# usage: ./dev fresh bookworm|trixie
#
# Makes a minimal Debian in build/fresh, clones the last commit into it and runs the README's commands there. The
# package of that build is then installed on a second minimal Debian, which has nothing but what the package
# asks for; it is started off-screen and removed again. Needs root, and a mirror: that of this machine's own apt, or
# DEBIAN_MIRROR.

suite=${1:-}
if [ "$suite" != bookworm ] && [ "$suite" != trixie ]; then
    help_of fresh >&2
    exit 2
fi
give_up() {
    echo "./dev fresh: $*" >&2
    exit 1
}
[ "$(id -u)" -eq 0 ] || give_up "only root can make a system of its own."
command -v apt-get >/dev/null || give_up "needs apt to fetch a Debian."
unshare --mount --pid --fork true || give_up "this machine lets nobody mount anything."
need fresh
# shellcheck disable=SC2016 # expanded by apt-get
mirror=${DEBIAN_MIRROR:-$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' |
    grep '/debian/*$' | head -n 1)}
[ -n "$mirror" ] || give_up "this machine's apt knows no mirror of Debian; name one in DEBIAN_MIRROR."

place=$PWD/build/fresh/$suite
rm --recursive --force --one-file-system "$place"
mkdir --parents "$place"

# inside <system> <script>: what is mounted for it goes with its namespace, so that nothing of this machine is left
# in a folder that is removed later.
inside() {
    # shellcheck disable=SC2016 # expanded by the inner shell
    unshare --mount --pid --fork --kill-child bash -euc '
        mount --rbind /dev "$1/dev"
        mount -t proc proc "$1/proc"
        exec env --ignore-environment \
            HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
            http_proxy="${http_proxy:-}" https_proxy="${https_proxy:-}" \
            chroot "$1" bash -euo pipefail -c "$2"' - "$place/$1" "$2" </dev/null
}

say "Making two minimal Debians ($suite)"
mmdebstrap --quiet --variant=minbase "$suite" "$place/minimal.tar" "$mirror"
for system in build user; do
    mkdir "$place/$system"
    tar --extract --numeric-owner --file "$place/minimal.tar" --directory "$place/$system"
    cp /etc/hosts /etc/resolv.conf "$place/$system/etc"
done

git clone --quiet . "$place/build/root/pelmora"
while read -r command; do
    start=$SECONDS
    say "On a fresh $suite: $command"
    inside build "cd /root/pelmora && $command"
    echo "$command passed after $((SECONDS - start)) s"
done < <(sed -n 's/^\(\.\/dev [a-z]*\) .*/\1/p' README.md)

say "Packing"
# dpkg-shlibdeps finds what the package depends on.
inside build "apt-get -q -y install --no-install-recommends dpkg-dev file
    cd /root/pelmora && cpack --config build/release/CPackConfig.cmake"
cp "$place"/build/root/pelmora/build/release/package/*.deb "$place/user/root/pelmora.deb"

say "Installing, starting and removing the package"
# shellcheck disable=SC2016 # expanded in there
inside user '
    apt-get -q update
    apt-get -q -y install --no-install-recommends /root/pelmora.deb
    dpkg --listfiles pelmora > /root/files
    for program in $(grep "^/usr/bin/." /root/files); do
        if ldd "$program" | grep "not found"; then exit 1; fi
    done
    echo "Starting"
    status=0
    QT_QPA_PLATFORM=offscreen timeout 10 pelmora || status=$?
    # Nobody ends it but the clock.
    [ "$status" -eq 124 ] || { echo "pelmora ended by itself ($status)"; exit 1; }
    apt-get -q -y purge pelmora
    while read -r file; do
        case $file in */pelmora* | */example.pelmora*)
            [ ! -e "$file" ] || { echo "$file is left"; exit 1; } ;;
        esac
    done < /root/files'

rm --recursive --force --one-file-system "$place"
echo "All of it works on a fresh $suite ($SECONDS s)."
