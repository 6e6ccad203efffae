# shellcheck shell=bash
# What the scripts share: the project's folder, a scratch folder that goes away at the end, and the
# installation of the tools that are missing. Source it; it changes into the project's folder.

set -euo pipefail

script=scripts/$(basename "$(readlink -f "$0")")
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
export LC_ALL=C.UTF-8 HOME=${HOME:-~}
unset LANGUAGE CDPATH

scratch=$(mktemp -d "${TMPDIR:-/tmp}/kelplib.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# fail TEXT...: one line on standard error, exit status 1.
fail() {
    printf '%s: %s\n' "$script" "$*" >&2
    exit 1
}

# Each need is "TEST PACKAGE...": a command, or the path of a file (wildcards allowed), and Debian's packages that bring it.
needs=()

need_for_demo() {
    needs+=("cmake cmake" "ninja ninja-build" "gcc g++" "g++ g++")
}

need_for_tests() {
    need_for_demo
    needs+=("/usr/src/googletest/CMakeLists.txt googletest" "python3 python3" "tmux tmux"
            "/usr/lib/python3/dist-packages/pyte/__init__.py python3-pyte")
}

# cmake asks for a compiler although none compiles anything here.
need_for_docs() {
    need_for_demo
    needs+=("doxygen doxygen" "/usr/share/doxygen-awesome-css/doxygen-awesome.css doxygen-awesome-css")
}

need_for_windows() {
    needs+=("x86_64-w64-mingw32-g++-posix g++-mingw-w64-x86-64-posix" "wine wine wine64")
}

# Compilers for other processors, and what runs their programs.
need_for_processors() {
    need_for_tests
    needs+=("aarch64-linux-gnu-g++ g++-aarch64-linux-gnu" "qemu-aarch64 qemu-user"
            "s390x-linux-gnu-g++ g++-s390x-linux-gnu" "qemu-s390x qemu-user")
}

need_for_minimal_debian() {
    needs+=("debootstrap debootstrap")
}

need_for_abi() {
    need_for_tests
    needs+=("abidiff abigail-tools")
}

need_for_debian_packages() {
    need_for_demo
    needs+=("dpkg-shlibdeps dpkg-dev" "pkg-config pkg-config" "python3 python3")
}

need_for_guard() {
    need_for_demo
    needs+=("python3 python3" "valgrind valgrind")
}

need_for_pictures() {
    need_for_demo
    needs+=("asciinema asciinema" "node nodejs" "npm npm")
}

need_for_benchmarks() {
    local cmake='/usr/lib/*/cmake'
    need_for_guard
    needs+=(
        "gnuplot gnuplot-nox" "/usr/lib/python3/dist-packages/tqdm/__init__.py python3-tqdm"
        "$cmake/benchmark/benchmarkConfig.cmake libbenchmark-dev" "$cmake/absl/abslConfig.cmake libabsl-dev"
        "$cmake/boost_program_options-*/*-config.cmake libboost-program-options-dev"
        "$cmake/double-conversion/double-conversionConfig.cmake libdouble-conversion-dev"
        "$cmake/fmt/fmt-config.cmake libfmt-dev" "$cmake/gflags/gflags-config.cmake libgflags-dev"
        "/usr/include/CLI/CLI.hpp libcli11-dev" "/usr/include/cxxopts.hpp libcxxopts-dev"
        "/usr/include/tclap/CmdLine.h libtclap-dev")
}

need_for_fuzzing() {
    need_for_tests
    needs+=("clang clang" "clang++ clang"
            "/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-x86_64.a libclang-rt-dev")
}

need_for_all_tests() {
    (( EUID != 0 )) || need_for_minimal_debian
    need_for_tests
    need_for_docs
    need_for_guard
    need_for_fuzzing
    need_for_windows
    need_for_processors
    needs+=(
        "pkg-config pkg-config" "valgrind valgrind" "clang clang" "clang++ clang" "run-clang-tidy clang-tidy" "clang-format clang-format"
        "/usr/lib/llvm-*/include/c++/v1/version libc++-dev" "/usr/lib/llvm-*/lib/libc++abi.so libc++abi-dev")
}

need_for_coverage() {
    need_for_tests
    needs+=("gcovr gcovr")
}

# The change of sources reads C++ with the release's own libclang.
need_for_mutation() {
    need_for_tests
    needs+=("/usr/lib/python3/dist-packages/clang/cindex.py python3-clang"
            "/usr/lib/llvm-*/lib/libclang-[0-9]*.so* python3-clang"
            "/usr/lib/llvm-*/lib/clang/*/include/stddef.h clang")
}

# is_there TEST: whether a need is met.
is_there() {
    case $1 in
        /*) compgen -G "$1" >/dev/null ;;
        *) command -v "$1" >/dev/null ;;
    esac
}

# missing_packages: the packages of the needs that are not met, each once, on one line.
missing_packages() {
    local words word need_line packages=()
    for need_line in "${needs[@]}"; do
        read -ra words <<<"$need_line"
        if ! is_there "${words[0]}"; then
            for word in "${words[@]:1}"; do
                [[ " ${packages[*]} " == *" $word "* ]] || packages+=("$word")
            done
        fi
    done
    echo "${packages[*]}"
}

# check_cmake: refuses a cmake that does not know the presets' version.
check_cmake() {
    local version
    version=$(cmake --version | sed -n '1s/^cmake version \([0-9]*\.[0-9]*\).*/\1/p')
    version=${version:-0.0}
    if (( ${version%.*} * 1000 + ${version#*.} < 3025 )); then
        fail "cmake $version is too old; kelplib needs cmake 3.25 or newer"
    fi
}

# quietly COMMAND...: runs it with its output in the log.
quietly() {
    "$@" </dev/null >>"$scratch/log" 2>&1
}

# fail_with_log TEXT...: the end of the log, then fail.
fail_with_log() {
    tail -n 10 "$scratch/log" | sed 's/^/    /' >&2
    fail "$*"
}

# apt_get WORDS...: one quiet call that asks nothing, tried a second time when it fails.
apt_get() {
    local call=(env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 apt-get -y -q -o DPkg::Lock::Timeout=300 "$@")
    if (( EUID != 0 )); then
        # Without a terminal there is nobody who could type a password.
        if [[ -t 0 ]]; then call=(sudo "${call[@]}"); else call=(sudo -n "${call[@]}"); fi
    fi
    quietly "${call[@]}" || quietly "${call[@]}"
}

# install_missing: meets the needs. Touches nothing and uses no network when they are met already.
install_missing() {
    local packages words
    if is_there cmake; then check_cmake; fi
    packages=$(missing_packages)
    if [[ -n $packages ]]; then
        is_there apt-get || fail "missing, to be installed by hand (Debian's package names): $packages"
        (( EUID == 0 )) || is_there sudo || fail "missing, to be installed by root (apt-get install): $packages"
        printf 'Installing what is missing: %s\n' "$packages"
        read -ra words <<<"$packages"
        # An index that cannot be fetched need not matter; the installation shows it.
        apt_get update || true
        apt_get install --no-install-recommends "${words[@]}" || fail_with_log "missing and could not be installed: $packages"
        hash -r
        packages=$(missing_packages)
        [[ -z $packages ]] || fail_with_log "installed, but their programs or files are not where kelplib looks: $packages"
    fi
    check_cmake
}

# prepare_wine: has wine make its settings, which takes a while the first time, so that no test waits for them.
prepare_wine() {
    echo 'Preparing wine'
    quietly timeout 300 cmake/run-under-wine wineboot || fail_with_log 'wine does not start'
}
