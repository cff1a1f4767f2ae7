# Sourced by ./run and ./check: the packages, the environment and the virtual X server that they need.
# The caller has set `root`, the project's folder.

# missing_packages [test]: names of the list that dpkg doesn't have, one a line.
missing_packages()
{
    local name kind
    while IFS='|' read -r name kind; do
        name=${name%%#*}; name=${name//[[:space:]]/}; kind=${kind//[[:space:]]/}
        [ -n "$name" ] || continue
        [ -z "$kind" ] || [ "$kind" = "${1:-}" ] || continue
        dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || echo "$name"
    done < "$root/tools/packages.txt"
}

# install_packages [test]: installs what is missing; without root or sudo prints the line to type, ends with 2.
install_packages()
{
    local missing as_root=""
    missing=$(missing_packages "${1:-}" | tr '\n' ' ')
    [ -n "${missing// /}" ] || return 0
    local line="apt-get install -y --no-install-recommends $missing"
    if [ "$(id -u)" != 0 ]; then
        if command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
            as_root=sudo
        else
            echo "These packages are missing. Please type:  sudo $line" >&2
            exit 2
        fi
    fi
    echo "Installing: $missing"
    $as_root apt-get update -q >/dev/null || true
    # shellcheck disable=SC2086
    DEBIAN_FRONTEND=noninteractive $as_root $line >/tmp/meridune-apt.$$ 2>&1 ||
        { tail -n 20 /tmp/meridune-apt.$$ >&2; echo "The packages could not be installed: $line" >&2; exit 2; }
    rm -f /tmp/meridune-apt.$$
}

# set_environment: the platform, runtime folder and locale where these are missing.
set_environment()
{
    export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-xcb}
    if [ -z "${XDG_RUNTIME_DIR:-}" ] || [ ! -d "${XDG_RUNTIME_DIR:-}" ]; then
        runtime_folder=$(mktemp -d /tmp/meridune-runtime.XXXXXX)
        chmod 700 "$runtime_folder"
        export XDG_RUNTIME_DIR=$runtime_folder
    fi
    case "${LC_ALL:-${LC_CTYPE:-${LANG:-}}}" in
        *UTF-8*|*utf8*) ;;
        *) export LC_ALL=C.UTF-8 ;;
    esac
}

# start_xvfb: a virtual X server on a free number, of $xvfb_screen (1920x1080x24), and a window manager that is
# ready in it; sets DISPLAY.
start_xvfb()
{
    local numbers ready
    numbers=$(mktemp /tmp/meridune-xvfb.XXXXXX)
    Xvfb -displayfd 3 -screen 0 "${xvfb_screen:-1920x1080x24}" -nolisten tcp >/dev/null 2>&1 3>"$numbers" &
    xvfb_pid=$!
    for _ in $(seq 100); do
        [ -s "$numbers" ] && break
        sleep 0.1
    done
    DISPLAY=:$(tr -d '[:space:]' < "$numbers")
    rm -f "$numbers"
    [ "$DISPLAY" != ":" ] || { echo "Xvfb did not start" >&2; exit 2; }
    export DISPLAY
    # A window that is mapped while the manager starts can stay unmapped for ever, so its start is waited for.
    ready=$(mktemp -u /tmp/meridune-openbox.XXXXXX)
    openbox --startup "touch $ready" >/dev/null 2>&1 &
    openbox_pid=$!
    for _ in $(seq 300); do
        [ -e "$ready" ] && break
        kill -0 $openbox_pid 2>/dev/null || break
        sleep 0.1
    done
    [ -e "$ready" ] || { echo "openbox did not start" >&2; exit 2; }
    rm -f "$ready"
}

# stop_own: ends what these functions started, and nothing else.
stop_own()
{
    [ -z "${openbox_pid:-}" ] || kill "$openbox_pid" 2>/dev/null
    [ -z "${xvfb_pid:-}" ] || { kill "$xvfb_pid" 2>/dev/null; wait "$xvfb_pid" 2>/dev/null; }
    [ -z "${runtime_folder:-}" ] || rm -rf "$runtime_folder"
}

# build PRESET [TARGET...]: configures and builds, quiet unless it fails.
build()
{
    local preset=$1 log
    shift
    log=$root/build/$preset.log
    mkdir -p "$root/build"
    (cd "$root" && cmake --preset "$preset") >"$log" 2>&1 ||
        { tail -n 40 "$log" >&2; return 1; }
    ninja -C "$root/build/${build_folder:-$preset}" "$@" >"$log" 2>&1 ||
        { grep -A12 -E 'FAILED|error:' "$log" | head -n 60 >&2; return 1; }
}
