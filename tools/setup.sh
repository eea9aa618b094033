# Shared by run.sh and test.sh: what the machine needs, and the build. Meant to be sourced.

project_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Debian packages by purpose.
build_packages=(g++ cmake ninja-build qtbase5-dev qtscript5-dev libxcb1-dev nlohmann-json3-dev
    libqscintilla2-qt5-dev liblua5.4-dev qttools5-dev qhelpgenerator-qt5)
# The driver that reads help collections, fonts for the window (the second for scripts that the first lacks, such as
# Hebrew), icons out of Windows executables, and a display where the machine has none.
run_packages=(libqt5sql5-sqlite fonts-liberation fonts-dejavu-core icoutils xvfb xauth openbox)
# binutils reads the symbol table of the plug-in, python3 and librsvg2-bin compare pictures with their sources,
# poppler-utils reads printed pages, and the compiler for Windows builds what only exists there.
test_packages=(xdotool x11-utils binutils python3 librsvg2-bin poppler-utils g++-mingw-w64-x86-64-posix)
# Runs what was built for Windows. Large: a test that misses it is skipped.
optional_test_packages=(wine64)
lint_packages=(clang-format clang-tidy git python3)

say() { printf '%s\n' "$*" >&2; }

# install_missing PACKAGE...: installs what is not there yet, as root or through sudo.
install_missing()
{
    local package missing=()
    for package in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "These packages are missing: ${missing[*]}"
            say "Install them as root, or install sudo: apt-get install ${missing[*]}"
            return 1
        fi
        as_root=(sudo)
    fi
    say "Installing with apt-get: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# install_if_possible PACKAGE...: as install_missing, but goes on without what can't be installed.
install_if_possible()
{
    install_missing "$@" || say "Going on without: $*"
}

# build PRESET [TARGET...]: configures once and builds.
build()
{
    local preset=$1
    shift
    cd "$project_dir"
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "Configuring build/$preset"
        cmake --preset "$preset" >/dev/null
    fi
    say "Building build/$preset"
    cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet
}
