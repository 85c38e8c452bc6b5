# shellcheck shell=bash
# What the commands need installed, and how they speak.

say() { printf '==> %s\n' "$*"; }
fail() { printf './dev: %s\n' "$*" >&2; exit 1; }

build_packages=(
    g++ g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix cmake ninja-build ccache
    libgtest-dev googletest libbenchmark-dev
    wine wine64 xvfb openbox xdotool x11-utils
    librsvg2-bin imagemagick icoutils fp-utils libchm-bin
    poppler-utils unixodbc unixodbc-dev odbc-mdbtools libsqliteodbc sqlite3 python3 python3-ezdxf
    wixl msitools zip
    clang-format git locales ca-certificates
)
bench_packages=(valgrind)
check_packages=(clang libclang-rt-dev clang-tidy cppcheck)

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

can_be_root() { [ "$(id -u)" = 0 ] || command -v sudo >/dev/null; }

missing_packages() {
    comm -23 <(printf '%s\n' "$@" | sort) \
        <(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null | sed -n 's/ installed$//p' | sort)
}

apt() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3 \
        -o Dpkg::Use-Pty=0 "$@" </dev/null >>build/setup.log 2>&1
}

install_packages() {
    local missing
    command -v dpkg-query >/dev/null || fail "this is no Debian; install the counterparts of: $*"
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    can_be_root || fail "neither root nor sudo; have these packages installed: ${missing[*]}"
    say "Installing ${missing[*]}"
    if ! { apt update && apt install -y --no-install-recommends "${missing[@]}"; }; then
        tail -n 20 build/setup.log >&2
        fail "the installation failed, see build/setup.log"
    fi
}

has_german() { locale -a 2>/dev/null | grep -qix 'de_DE\.utf-\?8'; }

# Without root the locale is made under build/ and found through LOCPATH.
provide_german() {
    if has_german; then return; fi
    if [ ! -d build/locale/de_DE.UTF-8 ]; then
        say "Making the locale de_DE.UTF-8"
        if can_be_root && as_root localedef -i de_DE -f UTF-8 de_DE.UTF-8; then return; fi
        mkdir -p build/locale
        localedef -i de_DE -f UTF-8 build/locale/de_DE.UTF-8 || fail "the locale de_DE.UTF-8 cannot be made"
    fi
    export LOCPATH="$PWD/build/locale"
}

ready() {
    mkdir -p build
    install_packages "$@"
    provide_german
    export CCACHE_DIR="$PWD/build/ccache"
    command -v ccache >/dev/null && export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
    return 0
}
