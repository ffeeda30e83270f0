# Sourced by run.sh, test.sh and .ci/run: installs by apt what a fresh Debian 12 lacks.

build_packages=(
    g++ cmake ninja-build git
    qt6-base-dev qt6-svg-dev qt6-qpa-plugins
    libsqlite3-dev unixodbc-dev libfontconfig-dev libxlsxwriter-dev
    fonts-noto-cjk
)
run_packages=(qt6-translations-l10n tdsodbc)
vnc_packages=(tigervnc-standalone-server tigervnc-tools openbox xauth)
test_packages=(tdsodbc libsqliteodbc libgtest-dev libgmock-dev python3-openpyxl)
check_packages=(clang-format-14 libasan8 libubsan1)
bench_packages=(libbenchmark-dev)

# Installs those of the named packages that are missing.
ensure_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Configures and builds one CMake preset.
build_preset() {
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
}
