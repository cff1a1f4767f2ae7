# Sourced by tools/barecheck and tools/packagecheck: a minimal Debian below a folder.

# make_minimal FOLDER PACKAGES: FOLDER/root becomes a minimal Debian with the named packages (comma between them),
# the machine's own apt sources and options, and its /dev, /proc and /sys.
make_minimal()
{
    local work=$1 packages=$2 options=() line deb822 sources=$1/sources
    command -v mmdebstrap >/dev/null || apt-get install -y --no-install-recommends mmdebstrap >/dev/null
    # Whatever options let this machine install at all.
    while IFS= read -r line; do options+=(--aptopt="$line"); done < <(
        apt-config dump | grep -E '^Acquire::(http|https|Retries|ForceIPv4)' || true)
    cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list > "$sources" 2>/dev/null || true
    deb822=(/etc/apt/sources.list.d/*.sources)
    mmdebstrap --variant=minbase --include="$packages" "${options[@]}" bookworm "$work/root" \
        $( [ -s "$sources" ] && echo "$sources" ) $( [ -e "${deb822[0]}" ] && echo "${deb822[@]}" ) >"$work/log" 2>&1 ||
        { tail -n 20 "$work/log" >&2; return 1; }
    cp /etc/apt/apt.conf.d/* "$work/root/etc/apt/apt.conf.d/" 2>/dev/null || true
    cp /etc/resolv.conf /etc/hosts "$work/root/etc/" 2>/dev/null || true
    mount --bind /dev "$work/root/dev"
    mount -t devpts devpts "$work/root/dev/pts" 2>/dev/null || true
    mount -t proc proc "$work/root/proc" 2>/dev/null || mount --bind /proc "$work/root/proc"
    mount --bind /sys "$work/root/sys"
}

# remove_minimal FOLDER: undoes it all.
remove_minimal()
{
    local m
    for m in tmp/.X11-unix dev/shm dev/pts dev proc sys; do umount -l "$1/root/$m" 2>/dev/null || true; done
    rm -rf --one-file-system "$1"
}
