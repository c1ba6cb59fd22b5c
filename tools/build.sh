# shellcheck shell=bash disable=SC2034
# Sourced by ./run, ./test and the tools: installing packages and building presets. Everything said goes to standard
# error, so that `./run check --json` prints nothing but its answer.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)

build_packages=(g++ cmake ninja-build ccache pkg-config libfmt-dev libgtest-dev libgmock-dev libcli11-dev
    nlohmann-json3-dev libutf8proc-dev libsqlite3-dev libzip-dev)
# What the view is built from and driven by; without Qt its tests are skipped.
view_packages=(qt6-base-dev xvfb xdotool)
test_packages=(python3 binutils valgrind "${view_packages[@]}")
bench_packages=(libbenchmark-dev libsimdjson-dev qt6-base-dev valgrind)
fuzz_packages=(clang-14 libclang-rt-14-dev)

export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
# Checkouts share compiled objects: paths inside the project are hashed relative to it.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
# ccache needs a folder to write to, and a bare system may have no home.
[ -w "${HOME:-/nonexistent}" ] || export CCACHE_DIR=${CCACHE_DIR:-$root/build/.ccache}

say() { printf '==> %s\n' "$*" >&2; }

# need_packages PACKAGE...: installs through apt those that are missing. apt is not asked when none is.
need_packages() {
    if ! command -v apt-get >/dev/null; then
        say "no apt here; taking for granted what these packages hold: $*"
        return
    fi
    local installed missing=() package
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    for package; do
        [[ $'\n'$installed$'\n' == *$'\n'"installed $package"$'\n'* ]] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local sudo=()
    if [ "$(id -u)" != 0 ]; then
        sudo=(sudo)
        if ! command -v sudo >/dev/null || ! { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
            say "missing packages: ${missing[*]}"
            say "install them as root: apt-get install ${missing[*]}"
            exit 1
        fi
    fi
    say "installing with ${sudo[*]:+sudo }apt-get: ${missing[*]}"
    local apt=("${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o Acquire::Retries=3
        -o DPkg::Lock::Timeout=120 -o Dpkg::Use-Pty=0)
    { "${apt[@]}" update && "${apt[@]}" install -y --no-install-recommends "${missing[@]}"; } >&2 </dev/null || {
        say "could not install: ${missing[*]}"
        exit 1
    }
    mkdir -p "$root/build" && touch "$root/build/.installed"
}

# locked PRESET COMMAND...: runs the command while no other one holds the preset's build folder.
locked() {
    local preset=$1 status=0 lock
    shift
    mkdir -p "$root/build"
    exec {lock}>"$root/build/.$preset.lock"
    flock -n "$lock" || { say "waiting for another run to leave build/$preset"; flock "$lock"; }
    "$@" || status=$?
    exec {lock}>&-
    return $status
}

# configure PRESET: only when it never was, when the presets have changed, or when packages have come since, some of
# which are used where they are found; the rest the build sees by itself.
configure() {
    local folder=$root/build/$1
    # CMake refuses a build folder that came along with a copied tree.
    if [ -f "$folder/CMakeCache.txt" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"; then
        rm -rf "$folder"
    fi
    if [ "$folder/build.ninja" -nt "$root/CMakePresets.json" ] && [ ! "$root/build/.installed" -nt "$folder/build.ninja" ]; then
        return
    fi
    say "configuring $1"
    local log
    log=$(cd "$root" && cmake --preset "$1" 2>&1) || { printf "%s\n" "$log" >&2; return 1; }
}

# progress PRESET: passes on what compilers say, and of the build's own lines every twentieth. Silent when nothing was
# to be done.
progress() {
    local line begun=
    while IFS= read -r line; do
        [[ $line == *'no work to do'* || $line == *'Re-checking globbed'* ]] && continue
        [ -n "$begun" ] || say "building $1"
        begun=yes
        [[ ! $line =~ ^\[([0-9]+)/[0-9]+\] || $((BASH_REMATCH[1] % 20)) == 0 ]] && printf '%s\n' "$line" >&2
    done
    return 0
}

# build PRESET [TARGET]: brings build/PRESET up to date.
build() { locked "$1" build_unlocked "$@"; }
build_unlocked() {
    local preset=$1
    shift
    configure "$preset" || return
    (set -o pipefail; cd "$root" && cmake --build --preset "$preset" ${1:+--target "$1"} 2>&1 | progress "$preset")
}
